// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "upload/Pruning.h"

#include "download/ReleasePaths.h"
#include "release/ContentName.h"
#include "upload/UploadRecord.h"

#include <QMap>

#include <algorithm>

namespace {

/// Returns the serial of the newest release that was in force before a time; 0 without one.
qint64 firstKept(const QMap<qint64, UploadRecord>& records, const QDateTime& oldest)
{
    qint64 serial = 0;
    for (const UploadRecord& record : records) {
        if (record.m_since.isValid() && record.m_since <= oldest)
            serial = std::max(serial, record.m_serial);
    }
    return serial;
}

} // namespace

Pruning::Pruning(Rclone& rclone, const QString& remote)
    : m_remote(rclone, remote)
{
}

bool Pruning::prepare(const QDateTime& oldest)
{
    if (!m_remote.read())
        return fail(QStringLiteral("rclone: ") + m_remote.errorText());
    const QMap<qint64, UploadRecord>& records = m_remote.records();
    const qint64 first = firstKept(records, oldest);
    if (first == 0)
        return true;
    if (!m_remote.hasRelease() || records.lastKey() > m_remote.release().m_serial)
        return fail(QStringLiteral("another upload is not finished"));
    QVector<QByteArray> digests;
    for (const UploadRecord& record : records)
        digests.append(record.m_listDigest);
    QHash<QByteArray, ReleaseList> lists;
    if (!m_remote.fetchLists(digests, lists))
        return fail(QStringLiteral("rclone: ") + m_remote.errorText());
    if (!keepNames(lists, first))
        return false;
    forgetNames(lists, first);
    for (const QString& file : qAsConst(m_files))
        m_bytes += m_remote.files().value(file);
    return true;
}

/// Collects what the releases from the first kept one on name. An upload that was broken and
/// overtaken may have no list; nobody has seen its release.
bool Pruning::keepNames(const QHash<QByteArray, ReleaseList>& lists, qint64 first)
{
    m_kept = {ReleasePaths::release(), ReleasePaths::signature(), ReleasePaths::list()};
    const QMap<qint64, UploadRecord>& records = m_remote.records();
    for (auto it = records.lowerBound(first); it != records.cend(); ++it) {
        const auto list = lists.constFind(it->m_listDigest);
        if (list == lists.cend() && it->m_since.isValid())
            return fail(
                QStringLiteral("the list of release %1 is missing or damaged").arg(it->m_serial));
        m_kept += {ReleasePaths::content(it->m_listDigest),
                   ReleasePaths::signatureOf(it->m_releaseDigest)};
        if (list == lists.cend())
            continue;
        for (const ReleaseList::Entry& entry : list->entries())
            m_kept += {QString::fromUtf8(entry.path), ReleasePaths::content(entry.digest)};
    }
    return true;
}

void Pruning::forgetNames(const QHash<QByteArray, ReleaseList>& lists, qint64 first)
{
    QSet<QString> files;
    const QMap<qint64, UploadRecord>& records = m_remote.records();
    for (auto it = records.cbegin(); it != records.lowerBound(first); ++it) {
        files.insert(UploadRecord::path(it.key()));
        const ReleaseList list = lists.value(it->m_listDigest);
        for (const ReleaseList::Entry& entry : list.entries())
            files.insert(QString::fromUtf8(entry.path));
    }
    for (auto it = m_remote.files().cbegin(); it != m_remote.files().cend(); ++it) {
        if (ContentName(it.key()).isValid())
            files.insert(it.key());
    }
    for (const QString& file : qAsConst(files)) {
        if (m_remote.files().contains(file) && !m_kept.contains(file))
            m_files.append(file);
    }
    m_files.sort();
}

bool Pruning::run()
{
    return m_remote.remove(m_files) || fail(QStringLiteral("rclone: ") + m_remote.errorText());
}

bool Pruning::fail(const QString& text)
{
    m_error = text;
    return false;
}
