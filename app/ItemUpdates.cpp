// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "ItemUpdates.h"

#include "catalogue/CatalogueIndex.h"
#include "catalogue/CatalogueUse.h"
#include "catalogue/MVThemeMgr.h"
#include "download/FileStates.h"
#include "download/ItemSurvey.h"
#include "download/ItemUpdate.h"
#include "download/ResourceStorage.h"
#include "DownloadFolder.h"

#include <QTimer>

#include <atomic>
#include <utility>

namespace {

bool isUpdatable(const SItemState& state)
{
    return state.m_eState == eFile_Outdated || state.m_eState == eFile_Damaged;
}

QVector<ItemKey> keysOf(const QVector<SCfg_Item*>& items)
{
    QVector<ItemKey> keys;
    for (const SCfg_Item* const item : items)
        keys.append({item->m_eType, item->m_qsGUID});
    return keys;
}

ItemUpdates::Lack lackOf(const QVector<SCfg_Item*>& items, const CancelToken& cancel)
{
    const ItemSurvey survey = ItemSurvey::verify(
        items, FileStates::Depth::Quick, [&cancel](qint64) { return !cancel.isCancelled(); });
    const ItemSurvey incomplete =
        survey.where([](const ItemSurvey::Row& row) { return !row.isReady(); });
    return {keysOf(survey.ready()), keysOf(incomplete.items()), incomplete.bytes(),
            incomplete.areBytesKnown()};
}

} // namespace

/// The numbers of a running update, which its thread writes.
struct ItemUpdates::Progress
{
    std::atomic<qint64> fetchedBytes{0};
    std::atomic<qint64> totalBytes{0};
};

/// One look at the items on disk, or at the watched one alone.
struct ItemUpdates::Scan
{
    void run(const CancelToken& cancel);
    void add(const FileStates& states, SCfg_Item& item, const ResourceStorage::Use& use);

    bool isWhole = false;
    SCfg_Item* watched = nullptr;
    QString folder; // for downloads
    qint64 freeBytes = -1;
    Reports reports;
    QVector<ItemKey> updatable;
};

void ItemUpdates::Scan::run(const CancelToken& cancel)
{
    const FileStates states(FileStates::Depth::Quick,
                            [&cancel](qint64) { return !cancel.isCancelled(); });
    freeBytes = DownloadFolder::freeBytes(folder);
    if (isWhole) {
        CatalogueIndex items(MVThemeMgr::init()->getDisplayXML());
        const QVector<ResourceStorage::Use> uses = ResourceStorage().diskUse();
        for (const ResourceStorage::Use& use : uses) {
            if (cancel.isCancelled())
                return;
            if (SCfg_Item* const item = items.find(use.item->m_eType, use.item->m_qsGUID))
                add(states, *item, use);
        }
    }
    if (watched && !reports.contains({watched->m_eType, watched->m_qsGUID}))
        reports.insert({watched->m_eType, watched->m_qsGUID},
                       {states.of(*watched), 0, 0, freeBytes});
}

void ItemUpdates::Scan::add(const FileStates& states, SCfg_Item& item,
                            const ResourceStorage::Use& use)
{
    const ItemKey key{item.m_eType, item.m_qsGUID};
    const Report report{states.of(item), use.ownBytes, use.sharedBytes, freeBytes};
    reports.insert(key, report);
    if (isUpdatable(report.state))
        updatable.append(key);
}

ItemUpdates::ItemUpdates(QObject* parent)
    : QObject(parent)
    , m_queue(this)
    , m_progressTimer(new QTimer(this))
{
    constexpr int progressMs = 100;
    m_progressTimer->setInterval(progressMs);
    connect(m_progressTimer, &QTimer::timeout, this, &ItemUpdates::tellProgress);
}

ItemUpdates::~ItemUpdates()
{
    shutDown();
}

void ItemUpdates::shutDown()
{
    m_cancel.cancel();
    m_progressTimer->stop();
    m_queue.shutDown();
}

void ItemUpdates::refresh()
{
    if (!std::exchange(m_isScanWaiting, true))
        addScan(true);
}

void ItemUpdates::watch(const ItemKey& item)
{
    m_watched = item;
    const bool isKnown = m_reports.contains(item) || m_isScanWaiting;
    if (!isKnown && !item.isEmpty() && item.find())
        addScan(false);
}

std::optional<ItemUpdates::Report> ItemUpdates::report(const ItemKey& item) const
{
    const auto found = m_reports.constFind(item);
    return found == m_reports.cend() ? std::nullopt : std::make_optional(*found);
}

void ItemUpdates::addScan(bool isWhole)
{
    auto scan = std::make_shared<Scan>();
    scan->isWhole = isWhole;
    WorkQueue::Job job;
    job.isYielding = true;
    job.prepare = [this, scan](const CancelToken& cancel) {
        if (scan->isWhole)
            m_isScanWaiting = false;
        scan->folder = DownloadFolder::inUse();
        scan->watched = m_watched.isEmpty() ? nullptr : m_watched.find();
        auto use = std::make_shared<CatalogueUse>();
        return [scan, use, cancel] { scan->run(cancel); };
    };
    job.ended = [this, scan](bool isCancelled) {
        if (!isCancelled)
            take(*scan);
        else if (scan->isWhole)
            refresh();
        else
            watch(m_watched);
    };
    m_queue.add(std::move(job));
}

void ItemUpdates::take(const Scan& scan)
{
    if (scan.isWhole) {
        m_reports = scan.reports;
        m_updatable = scan.updatable;
    } else {
        for (auto found = scan.reports.cbegin(); found != scan.reports.cend(); ++found)
            m_reports.insert(found.key(), found.value());
    }
    emit reportsChanged();
    watch(m_watched); // it may have changed meanwhile
}

QVector<SCfg_Item*> ItemUpdates::existing(const QVector<ItemKey>& items)
{
    QVector<SCfg_Item*> found;
    for (const ItemKey& key : items) {
        if (SCfg_Item* const item = key.find())
            found.append(item);
    }
    return found;
}

bool ItemUpdates::update(const QVector<ItemKey>& items)
{
    if (m_isUpdating || existing(items).isEmpty())
        return false;
    m_isUpdating = true;
    m_updatedItems = items;
    m_cancel = CancelToken();
    m_progress = std::make_shared<Progress>();
    auto outcome = std::make_shared<SUpdateOutcome>();
    WorkQueue::Job job;
    job.prepare = [this, items, outcome](const CancelToken&) {
        return updateWork(items, *outcome);
    };
    job.ended = [this, outcome](bool) { endUpdate(*outcome); };
    emit updateStarted();
    m_progressTimer->start();
    m_queue.add(std::move(job));
    return true;
}

/// Returns the work of an update; `outcome` belongs to its job.
WorkQueue::Work ItemUpdates::updateWork(const QVector<ItemKey>& items, SUpdateOutcome& outcome)
{
    auto update = std::make_shared<ItemUpdate>(m_cancel);
    update->setProgress([progress = m_progress](qint64 fetchedBytes, qint64 totalBytes) {
        progress->totalBytes = totalBytes;
        progress->fetchedBytes = fetchedBytes;
    });
    return [update, found = existing(items), &outcome] { outcome = update->updateItems(found); };
}

void ItemUpdates::cancel()
{
    m_cancel.cancel();
}

void ItemUpdates::tellProgress()
{
    const qint64 fetched = m_progress->fetchedBytes; // first: the total is never below it
    emit progressed(fetched, m_progress->totalBytes);
}

void ItemUpdates::endUpdate(const SUpdateOutcome& outcome)
{
    m_progressTimer->stop();
    tellProgress();
    m_isUpdating = false;
    emit updateEnded(outcome); // a receiver may load the catalogue again
    refresh();
}

void ItemUpdates::examine(const QVector<ItemKey>& items)
{
    auto lack = std::make_shared<Lack>();
    WorkQueue::Job job;
    job.prepare = [items, lack](const CancelToken& cancel) {
        auto use = std::make_shared<CatalogueUse>();
        return [found = existing(items), lack, use, cancel] { *lack = lackOf(found, cancel); };
    };
    job.ended = [this, lack](bool) { emit examined(*lack); };
    m_queue.add(std::move(job));
}
