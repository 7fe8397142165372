// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "upload/TreeRelease.h"

#include "download/ReleasePaths.h"
#include "download/ReleaseSignature.h"
#include "host/ContentDigest.h"
#include "host/RegularFile.h"
#include "host/SystemFile.h"

#include <QDateTime>
#include <QFile>
#include <QFileInfo>
#include <QVector>

namespace {

bool readBytes(const QString& path, qint64 maxBytes, QByteArray& bytes)
{
    QFile file(path);
    return RegularFile::open(file) && RegularFile::readAll(file, maxBytes, bytes);
}

/// Returns whether two names belong to one file, as those of a content and of its file do.
bool areLinked(const QString& left, const QString& right)
{
    return SystemFile::isSame(SystemFile::encodedName(left), SystemFile::encodedName(right));
}

} // namespace

bool TreeRelease::read(const QString& tree)
{
    m_folder = QFileInfo(tree).canonicalFilePath();
    if (m_folder.isEmpty() || !QFileInfo(m_folder).isDir())
        return fail(QStringLiteral("no such folder: %1").arg(tree));
    if (!QFileInfo::exists(path(ReleasePaths::release())))
        return fail(QStringLiteral("%1 has no %2; build it with a release")
                        .arg(tree, ReleasePaths::release()));
    if (!readRelease() || !readList() || !readSignature())
        return false;
    const QVector<ReleaseList::Entry>& entries = m_list.entries();
    for (const ReleaseList::Entry& entry : entries) {
        if (!checkFile(entry))
            return false;
    }
    return true;
}

bool TreeRelease::readRelease()
{
    if (!readBytes(path(ReleasePaths::release()), SRelease::maxBytes, m_bytes))
        return fail(QStringLiteral("%1 cannot be read").arg(ReleasePaths::release()));
    QString reason;
    if (!SRelease::parse(m_bytes, m_release, reason))
        return fail(QStringLiteral("%1: %2").arg(ReleasePaths::release(), reason));
    m_digest = ContentDigest::ofBytes(m_bytes);
    if (m_release.m_expires.isValid() && m_release.m_expires <= QDateTime::currentDateTimeUtc())
        return fail(QStringLiteral("the release expired on %1; build the tree anew")
                        .arg(m_release.m_expires.toString(Qt::ISODate)));
    return true;
}

bool TreeRelease::readList()
{
    QByteArray text;
    QString reason;
    if (!readBytes(path(ReleasePaths::list()), ReleaseList::maxBytes, text))
        return fail(QStringLiteral("%1 cannot be read").arg(ReleasePaths::list()));
    if (ContentDigest::ofBytes(text) != m_release.m_listDigest)
        return fail(QStringLiteral("%1 is not the list that the release names; build the tree anew")
                        .arg(ReleasePaths::list()));
    if (!ReleaseList::parse(text, m_list, reason))
        return fail(QStringLiteral("%1: %2").arg(ReleasePaths::list(), reason));
    return checkContent(m_release.m_listDigest, ReleasePaths::list());
}

/// Requires both names of the signature, or none.
bool TreeRelease::readSignature()
{
    const QString content = ReleasePaths::signatureOf(m_digest);
    m_isSigned = QFileInfo::exists(path(ReleasePaths::signature()));
    if (!m_isSigned && !QFileInfo::exists(path(content)))
        return true;
    QByteArray named;
    QByteArray byDigest;
    if (!readBytes(path(ReleasePaths::signature()), ReleaseSignature::maxBytes, named)
        || !readBytes(path(content), ReleaseSignature::maxBytes, byDigest) || named != byDigest)
        return fail(QStringLiteral("%1 and %2 are not the same; sign the tree again")
                        .arg(ReleasePaths::signature(), content));
    m_contents.insert(content, byDigest.size());
    return true;
}

bool TreeRelease::checkFile(const ReleaseList::Entry& entry)
{
    const QString name = QString::fromUtf8(entry.path);
    if (ContentDigest::ofFile(path(name)) != entry.digest)
        return fail(
            QStringLiteral("%1 is not what the release names; build the tree anew").arg(name));
    return checkContent(entry.digest, name);
}

bool TreeRelease::checkContent(const QByteArray& digest, const QString& otherName)
{
    const QString name = ReleasePaths::content(digest);
    if (m_contents.contains(name))
        return true;
    if (!areLinked(path(name), path(otherName)) && ContentDigest::ofFile(path(name)) != digest)
        return fail(QStringLiteral("%1, the content of %2, is missing or damaged; build the tree "
                                   "anew")
                        .arg(name, otherName));
    m_contents.insert(name, QFileInfo(path(name)).size());
    return true;
}

bool TreeRelease::fail(const QString& text)
{
    m_error = text;
    return false;
}
