// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "catalogue/CatalogueJobs.h"
#include "download/ResourceKey.h"
#include "download/ResourceStorage.h"
#include "download/SItemDownloadResult.h"
#include "download/SUpdateOutcome.h"

#include <QHash>
#include <QObject>
#include <QVector>

#include <optional>

class ItemStates;
class MVThemeDownLoader;

/// Downloads, updates and removes items, and follows the downloads that others have started. A
/// reload of the catalogue stops downloads and updates, and they go on after it.
///
/// Shared by all models of the process, internal to the library. GUI thread only.
class ItemTransfers : public QObject
{
    Q_OBJECT

public:
    enum class Operation { Fetch, Update, Remove };

    /// `states` must outlive this object.
    explicit ItemTransfers(ItemStates& states);
    ~ItemTransfers() override;

    /// Begin an operation, which ended() follows. Return false and do nothing while the item takes
    /// part in another one, and if the catalogue does not contain it.
    bool fetch(const ResourceKey& key) { return begin(key, Operation::Fetch); }
    bool update(const ResourceKey& key) { return begin(key, Operation::Update); }
    bool remove(const ResourceKey& key) { return begin(key, Operation::Remove); }
    /// Cancels the fetch or update of an item, unless others do it.
    void cancel(const ResourceKey& key);

    /// Brings the item back that was removed last. Returns false if there is none.
    bool undoRemove();
    bool canUndoRemove() const { return !m_removed.files.isEmpty(); }

    /// Returns whether an item takes part in an operation, or others download it.
    bool isBusy(const ResourceKey& key) const { return m_active.contains(key); }
    /// Returns what an item is busy with; nothing if it is not.
    std::optional<Operation> operation(const ResourceKey& key) const;
    /// Returns the progress of a download or update in per cent; 0 without one.
    int percent(const ResourceKey& key) const { return m_active.value(key).percent; }
    /// Returns why the last operation on the item has failed; no failure if it has not.
    STransferFailure failure(const ResourceKey& key) const { return m_failures.value(key); }

signals:
    /// The results of the functions above have changed for an item.
    void changed(const ResourceKey& key);
    /// An operation, or a download of others, has ended, and the item's state is known again.
    void ended(const ResourceKey& key, ItemTransfers::Operation operation,
               const SItemDownloadResult& result);
    void canUndoRemoveChanged();

private:
    struct Active
    {
        Operation operation = Operation::Fetch;
        bool isOwn = false; // begun here and not yet ended
        MVThemeDownLoader* loader = nullptr;
        quint64 number = 0; // of the loader
        int running = 0;    // downloads of this process, by whomever
        int percent = 0;
        bool isCancelled = false;                  // by cancel()
        std::optional<SItemDownloadResult> result; // the state is being determined
    };

    bool begin(const ResourceKey& key, Operation operation);
    void startDownloads();
    void startDownload(const ResourceKey& key);
    void endDownload(const ResourceKey& key, quint64 number);
    void addUpdate(const ResourceKey& key);
    CatalogueJobs::Work prepareUpdate(const ResourceKey& key, const CancelToken& cancel,
                                      SUpdateOutcome& outcome);
    void endUpdate(const ResourceKey& key, const SUpdateOutcome& outcome);
    void addRemoval(const ResourceKey& key);
    void endRemoval(const ResourceKey& key, const ResourceStorage::Removal& removal);
    void replaceRemoved(const ResourceStorage::Removal& removal);
    void endOwn(const ResourceKey& key, const SItemDownloadResult& result);
    void report(const QVector<ResourceKey>& keys);
    void setPercent(const ResourceKey& key, int percent);
    void noteStarted(const ResourceKey& key);
    void noteEnded(const ResourceKey& key, const SItemDownloadResult& result);
    void suspendDownloads();
    void resumeDownloads();

    ItemStates& m_states;
    QHash<ResourceKey, Active> m_active;
    QHash<ResourceKey, STransferFailure> m_failures;
    QVector<ResourceKey> m_waiting; // for a download, in their order
    quint64 m_lastNumber = 0;       // of a loader
    bool m_isSuspended = false;
    ResourceStorage::Removal m_removed; // can be undone
    CatalogueJobs m_jobs;               // last: it is joined before the rest is destroyed
};
