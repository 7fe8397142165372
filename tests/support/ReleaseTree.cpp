// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "support/ReleaseTree.h"

#include "download/ReleaseList.h"
#include "download/ReleasePaths.h"
#include "host/ContentDigest.h"

#include <QDateTime>
#include <QVector>

ReleaseTree ReleaseTree::of(const Files& files, qint64 serial, const QString& catalogueVersion,
                            const std::function<void(SRelease&)>& change)
{
    ReleaseTree tree;
    QVector<ReleaseList::Entry> entries;
    for (auto file = files.cbegin(); file != files.cend(); ++file) {
        const QByteArray digest = ContentDigest::ofBytes(file.value());
        entries.append({digest, file.value().size(), file.key().toUtf8()});
        tree.added.insert(ReleasePaths::content(digest), file.value());
    }
    tree.list = ReleaseList(entries).toText();
    SRelease release;
    release.m_serial = serial;
    release.m_qsCatalogueVersion = catalogueVersion;
    release.m_published = QDateTime::fromSecsSinceEpoch(1700000000, Qt::UTC);
    release.m_listBytes = tree.list.size();
    release.m_listDigest = ContentDigest::ofBytes(tree.list);
    if (change)
        change(release);
    tree.release = release.toJson();
    tree.added.insert(ReleasePaths::list(), tree.list);
    tree.added.insert(ReleasePaths::content(ContentDigest::ofBytes(tree.list)), tree.list);
    tree.added.insert(ReleasePaths::release(), tree.release);
    return tree;
}
