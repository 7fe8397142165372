// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "release/ReleaseWriter.h"

#include "download/ReleasePaths.h"
#include "host/ContentDigest.h"
#include "release/ContentFolder.h"
#include "release/PreviousRelease.h"
#include "tree/ServedFiles.h"

#include <QFileInfo>
#include <QVector>

#include <algorithm>

namespace {

/// Returns the time at which a release expires; invalid: never.
QDateTime expiryOf(const QDateTime& published, int days)
{
    return days > 0 ? published.addDays(days) : QDateTime();
}

} // namespace

ReleaseWriter::ReleaseWriter(const QString& tree, const QString& replaced)
    : m_tree(tree)
    , m_replaced(replaced)
{
}

bool ReleaseWriter::write(const QSet<QString>& files, const ReleaseOptions& options)
{
    PreviousRelease previous(m_replaced);
    m_warning = previous.faultText();
    if (!previous.errorText().isEmpty())
        return fail(previous.errorText());
    ContentFolder contents(m_tree);
    const QString list = file(ReleasePaths::list());
    if (!listFiles(files, contents) || !ServedFiles::write(list, m_list.toText(), &m_error))
        return false;
    if (!decide(previous, options))
        return false;
    const QByteArray json = m_release.toJson();
    if (!ServedFiles::write(file(ReleasePaths::release()), json, &m_error))
        return false;
    if (!contents.add(list, m_release.m_listDigest))
        return fail(contents.errorText());
    if (json == previous.bytes() && !keepSignature(previous, contents))
        return false;
    const bool isKept = m_isUnchanged ? previous.keepAll(contents) : previous.keepNamed(contents);
    return isKept || fail(previous.errorText());
}

/// Publishes the content of every file and lists it.
bool ReleaseWriter::listFiles(const QSet<QString>& files, ContentFolder& contents)
{
    if (files.size() > ReleaseList::maxFiles)
        return fail(QStringLiteral("a release has at most %1 files").arg(ReleaseList::maxFiles));
    QVector<ReleaseList::Entry> entries;
    entries.reserve(files.size());
    QStringList names(files.cbegin(), files.cend());
    names.sort(); // of files with equal content the same one is linked in every build
    for (const QString& name : qAsConst(names)) {
        const QString path = file(name);
        const ReleaseList::Entry entry{ContentDigest::ofFile(path), QFileInfo(path).size(),
                                       name.toUtf8()};
        const QString fault = ReleaseList::faultOf(entry.path);
        if (!fault.isEmpty())
            return fail(QStringLiteral("%1 cannot be part of a release: %2").arg(name, fault));
        if (entry.digest.isEmpty())
            return fail(QStringLiteral("%1 cannot be read").arg(path));
        if (!contents.add(path, entry.digest))
            return fail(contents.errorText());
        entries.append(entry);
    }
    m_list = ReleaseList(entries);
    return true;
}

/// Decides whether this is the previous release again, and otherwise on serial and times.
bool ReleaseWriter::decide(const PreviousRelease& previous, const ReleaseOptions& options)
{
    const QByteArray list = m_list.toText();
    const SRelease& before = previous.release();
    const QByteArray digest = ContentDigest::ofBytes(list);
    m_isUnchanged = previous.exists() && !options.renew && before.m_listDigest == digest
        && before.m_qsCatalogueVersion == options.catalogueVersion
        && before.m_expires == expiryOf(before.m_published, options.expiryDays);
    if (m_isUnchanged) {
        m_release = before;
        return true;
    }
    m_release.m_serial = std::max(
        {Q_INT64_C(1), options.now.toSecsSinceEpoch(), options.newestInput, before.m_serial + 1});
    m_release.m_qsCatalogueVersion = options.catalogueVersion;
    m_release.m_published = options.now;
    m_release.m_expires = expiryOf(options.now, options.expiryDays);
    m_release.m_listBytes = list.size();
    m_release.m_listDigest = digest;
    return (m_release.m_serial <= SRelease::maxSerial && list.size() <= ReleaseList::maxBytes)
        || fail(QStringLiteral("the release has a serial or a list of files that is too large"));
}

/// A signature belongs to the bytes that it signs.
bool ReleaseWriter::keepSignature(const PreviousRelease& previous, ContentFolder& contents)
{
    if (previous.signature().isEmpty())
        return true;
    const QString kept = file(ReleasePaths::signature());
    return ServedFiles::write(kept, previous.signature(), &m_error)
        && (contents.addSignature(kept, ContentDigest::ofBytes(previous.bytes()))
            || fail(contents.errorText()));
}

bool ReleaseWriter::fail(const QString& text)
{
    if (m_error.isEmpty())
        m_error = text;
    return false;
}
