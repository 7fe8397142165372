// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "download/SItemState.h"
#include "download/SUpdateOutcome.h"
#include "host/CancelToken.h"
#include "ItemKey.h"
#include "WorkQueue.h"

#include <QHash>
#include <QObject>
#include <QVector>

#include <memory>
#include <optional>

class QTimer;
struct SCfg_Item;

/// Tells the states of the items on disk by the accepted release, and updates, downloads and
/// examines items. Everything that reads files runs on a thread of its own; all calls and signals
/// are the GUI thread's.
///
/// While a job of this object runs, the catalogue cannot be loaded again: use queue().runAlone().
class ItemUpdates : public QObject
{
    Q_OBJECT

public:
    /// The state of an item and the space that it takes on disk.
    struct Report
    {
        SItemState state;
        qint64 ownBytes = 0;    ///< on disk, needed by no other item
        qint64 sharedBytes = 0; ///< on disk, needed by others, too
        qint64 freeBytes = -1;  ///< left on the disk of the download folder; -1: unknown
    };
    /// The result of examine(): which items are ready, and the files that the others need.
    struct Lack
    {
        QVector<ItemKey> ready;   ///< can be used
        QVector<ItemKey> missing; ///< lack files, or have damaged ones
        qint64 bytes = 0;         ///< to be fetched, as far as the release tells
        bool areBytesKnown = true;
    };

    explicit ItemUpdates(QObject* parent = nullptr);
    ~ItemUpdates() override;

    /// Looks at all items on disk, and at the watched one, and emits reportsChanged(). Call it
    /// after a check, and when files have come or gone.
    void refresh();
    /// Also reports on this item, which need not be on disk. An empty key ends that.
    void watch(const ItemKey& item);
    /// Returns what was last found; nothing for an item that is neither on disk nor watched.
    std::optional<Report> report(const ItemKey& item) const;
    /// Returns the items on disk that are outdated or damaged, in the order of the catalogue.
    const QVector<ItemKey>& updatable() const { return m_updatable; }

    /// Fetches what is missing, outdated or damaged of these items, as one download. Returns false
    /// and does nothing while another one works, and without any item of the catalogue.
    bool update(const QVector<ItemKey>& items);
    bool isUpdating() const { return m_isUpdating; }
    /// Returns the items of the running update, or of the last one.
    const QVector<ItemKey>& updatedItems() const { return m_updatedItems; }
    /// Cancels the running update; updateEnded() follows.
    void cancel();

    /// Finds out what items lack, and emits examined(). Unknown items are left out.
    void examine(const QVector<ItemKey>& items);

    WorkQueue& queue() { return m_queue; }
    /// Cancels everything and waits for its end, within 200 ms unless a file is being stored. No
    /// signal follows.
    void shutDown();

signals:
    void reportsChanged();
    void updateStarted();
    /// The bytes of the update, every 100 ms. The total grows while definitions arrive.
    void progressed(qint64 fetchedBytes, qint64 totalBytes);
    void updateEnded(const SUpdateOutcome& outcome);
    void examined(const ItemUpdates::Lack& lack);

private:
    using Reports = QHash<ItemKey, Report>;
    struct Progress;
    struct Scan;

    void addScan(bool isWhole);
    void take(const Scan& scan);
    WorkQueue::Work updateWork(const QVector<ItemKey>& items, SUpdateOutcome& outcome);
    void tellProgress();
    void endUpdate(const SUpdateOutcome& outcome);
    static QVector<SCfg_Item*> existing(const QVector<ItemKey>& items);

    WorkQueue m_queue;
    Reports m_reports;
    QVector<ItemKey> m_updatable;
    ItemKey m_watched;
    bool m_isScanWaiting = false; // a whole one
    QVector<ItemKey> m_updatedItems;
    bool m_isUpdating = false;
    CancelToken m_cancel; // of the update
    std::shared_ptr<Progress> m_progress;
    QTimer* m_progressTimer;
};
