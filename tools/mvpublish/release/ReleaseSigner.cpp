// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "release/ReleaseSigner.h"

#include "download/ReleaseKey.h"
#include "download/ReleasePaths.h"
#include "download/ReleaseSignature.h"
#include "host/ContentDigest.h"
#include "host/STransferFailure.h"
#include "host/Utils.h"
#include "keys/SecretKey.h"
#include "release/TreeBytes.h"
#include "tree/ServedFiles.h"

#include <QFileInfo>

ReleaseSigner::ReleaseSigner(const QString& tree)
    : m_tree(tree + QLatin1Char('/'))
{
}

bool ReleaseSigner::open(const QDateTime& now)
{
    const QString file = m_tree + ReleasePaths::release();
    if (!QFileInfo::exists(file))
        return fail(QStringLiteral("%1 holds no release; build the tree with one").arg(m_tree));
    if (!TreeBytes::read(file, SRelease::maxBytes, m_bytes, &m_error)
        || !SRelease::parse(m_bytes, m_release, m_error))
        return false;
    if (ContentDigest::ofFile(m_tree + ReleasePaths::list()) != m_release.m_listDigest)
        return fail(
            QStringLiteral("%1 is not the list that the release names; build the tree again")
                .arg(m_tree + ReleasePaths::list()));
    if (m_release.m_expires.isValid() && m_release.m_expires <= now)
        return fail(QStringLiteral("the release expired at %1; build the tree with --renew")
                        .arg(m_release.m_expires.toString(Qt::ISODate)));
    return true;
}

bool ReleaseSigner::sign(const SecretKey& key, const QDateTime& now)
{
    const QByteArray comment = "timestamp:" + QByteArray::number(now.toSecsSinceEpoch())
        + "\tfile:" + QFileInfo(ReleasePaths::release()).fileName().toUtf8()
        + "\thashed\tserial:" + QByteArray::number(m_release.m_serial);
    const QByteArray text = key.sign(m_bytes, comment);
    ReleaseSignature signature;
    if (!ReleaseSignature::parse(text, signature, m_error)
        || !signature.verify(m_bytes, {key.publicKey()}, m_error))
        return false;
    // Clients take the one below "content".
    return store(ReleasePaths::signatureOf(ContentDigest::ofBytes(m_bytes)), text)
        && store(ReleasePaths::signature(), text);
}

bool ReleaseSigner::store(const QString& name, const QByteArray& signature)
{
    const QString file = m_tree + name;
    const QString folder = QFileInfo(file).path();
    if (!ServedFiles::makeFolder(QFileInfo(folder).path(), &m_error)
        || !ServedFiles::makeFolder(folder, &m_error))
        return false;
    STransferFailure failure;
    if (!Utils::writeFile(file, signature, &failure))
        return fail(failure.m_qsDetails);
    return ServedFiles::makeReadable(file)
        || fail(QStringLiteral("%1 cannot be made readable").arg(file));
}

bool ReleaseSigner::fail(const QString& text)
{
    m_error = text;
    return false;
}
