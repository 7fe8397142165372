// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "upload/RemoteNames.h"

#include "upload/TreeRelease.h"
#include "upload/UploadPlace.h"
#include "upload/UploadRecord.h"

#include <QByteArray>
#include <QHash>
#include <QMap>

#include <algorithm>

bool RemoteNames::read(UploadPlace& remote, const TreeRelease& tree)
{
    if (remote.releaseDigest() == tree.digest())
        return true; // every file was there before release.json
    const qint64 serial = tree.release().m_serial;
    const qint64 currentSerial = remote.hasRelease() ? remote.release().m_serial : 0;
    QVector<QByteArray> digests;
    if (remote.hasRelease())
        digests.append(remote.release().m_listDigest);
    const QMap<qint64, UploadRecord>& records = remote.records();
    for (auto it = records.upperBound(currentSerial); it != records.cend(); ++it) {
        m_unknown += QSet<QString>(it->m_unknown.cbegin(), it->m_unknown.cend());
        if (it.key() != serial)
            digests.append(it->m_listDigest);
    }
    // An upload that was broken before its list was there has sent no named file.
    QHash<QByteArray, ReleaseList> lists;
    if (!remote.fetchLists(digests, lists))
        return false;
    for (const ReleaseList& list : qAsConst(lists))
        m_lists.append(list);
    if (records.contains(serial))
        return true;
    for (const ReleaseList::Entry& entry : tree.list().entries()) {
        const QString name = QString::fromUtf8(entry.path);
        const bool isExplained =
            std::any_of(m_lists.cbegin(), m_lists.cend(),
                        [&](const ReleaseList& list) { return list.find(name).isValid(); });
        if (remote.files().contains(name) && !isExplained)
            m_unexplained.append(name);
    }
    m_unknown += QSet<QString>(m_unexplained.cbegin(), m_unexplained.cend());
    return true;
}

bool RemoteNames::mayDiffer(const ReleaseList::Entry& entry) const
{
    const QString name = QString::fromUtf8(entry.path);
    return m_unknown.contains(name)
        || std::any_of(m_lists.cbegin(), m_lists.cend(), [&](const ReleaseList& list) {
               const ReleaseList::Entry other = list.find(name);
               return other.isValid() && other.digest != entry.digest;
           });
}
