// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "catalogue/CatalogueJobs.h"
#include "download/AcceptedRelease.h"
#include "download/ResourceEvents.h" // declares ECfgItemType to Qt, which the signals need
#include "download/ResourceKey.h"
#include "download/SItemFacts.h"
#include "download/StateScan.h"
#include "records/KindTable.h"
#include "records/MvResourceExport.h"

#include <QHash>
#include <QObject>
#include <QSet>
#include <QStringList>
#include <QVector>

#include <array>
#include <deque>
#include <memory>

/// Knows the states of the shown items of the watched kinds, and follows all that changes them:
/// loads, checks, pictures that arrive, and files that come, go or are replaced. A thread of its
/// own looks at the files, so that reading what is known never touches the disk.
///
/// Shared by all models and lists of the process, internal to this project's libraries. GUI thread
/// only.
class MVRESOURCE_EXPORT ItemStates : public QObject
{
    Q_OBJECT

public:
    ItemStates();

    /// Returns the object that all users share; it exists as long as one of them keeps it.
    static std::shared_ptr<ItemStates> shared();

    /// Begins and ends following a kind; a kind is followed until every begin has its end.
    void watch(ECfgItemType kind);
    void unwatch(ECfgItemType kind);

    /// Returns what is known of an item; null before it was looked at. Valid until control returns
    /// to the event loop.
    const SItemFacts* find(const ResourceKey& key) const;
    /// Looks at items again, before all that waits; looked() tells when that has been done, also of
    /// items that do not exist.
    void refresh(const QVector<ResourceKey>& keys);
    /// Looks at all items of a watched kind again; what is known stays until then.
    void refreshKind(ECfgItemType kind);
    /// Returns whether items of a kind wait to be looked at.
    bool isExamining(ECfgItemType kind) const { return m_waiting.at(kind) > 0; }

signals:
    /// Something that is known of these items has changed.
    void changed(ECfgItemType kind, const QStringList& guids);
    /// The states of these items have been determined, changed or not.
    void looked(const QVector<ResourceKey>& keys);
    void examiningChanged(ECfgItemType kind);

private:
    void refreshAll();
    void refreshPictures(const QString& guid);
    void refreshUsersOf(const QStringList& paths);
    void refreshByRelease();
    void forget(ECfgItemType kind, const QSet<QString>& kept);
    void request(const ResourceKey& key);
    void finish(const QVector<ResourceKey>& keys);
    void startScan();
    CatalogueJobs::Work prepareScan(const CancelToken& cancel);
    void endScan();
    void take(const QVector<StateScan::Found>& found);
    bool store(const StateScan::Found& found);
    bool isStale(const StateScan::Found& found) const;

    QHash<ResourceKey, SItemFacts> m_facts;
    std::array<int, KindTable::count> m_watchers{};
    std::array<int, KindTable::count> m_waiting{};
    std::deque<ResourceKey> m_queue;        // to be looked at; those without a request are skipped
    QHash<ResourceKey, quint64> m_requests; // the last one of each item that waits
    quint64 m_lastRequest = 0;
    /// By the hashes of files that have changed while items waited: the last request before.
    QHash<quint32, quint64> m_changedFiles;
    std::shared_ptr<StateScan> m_scan; // null: none is running
    bool m_isScanAdded = false;
    AcceptedRelease::Pointer m_release; // by which the states were last determined
    CatalogueJobs m_jobs;               // last: it is joined before the rest is destroyed
};
