// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

// CheckWorker_ThumbAndGif: several files at a time, those that the user is looking at first.

#include "download/CheckWorker_ThumbAndGif.h"
#include "download/PreviewQueue.h"
#include "host/HostSettings.h"
#include "host/TransferPool.h"

#include <algorithm>
#include <chrono>
#include <utility>

namespace {

constexpr int picturesPerTurn = 100;

} // namespace

struct CheckWorker_ThumbAndGif::SideBySide
{
    SideBySide(QVector<SCfg_Item*> all, const QVector<QString>& guids, const CancelToken& cancel)
        : items(std::move(all))
        , queue(guids)
        , pool(hostSettings().transfersSideBySide, cancel)
    {
    }

    const QVector<SCfg_Item*> items;
    PreviewQueue queue;
    QVector<PreviewQueue::Picture> postponed; // another transfer is writing their file
    bool isStopped = false;                   // by a cancel: no transfer begins any more
    TransferPool pool;
};

/// Returns false if the run was cancelled.
bool CheckWorker_ThumbAndGif::fetchSideBySide()
{
    QVector<SCfg_Item*> items;
    QVector<QString> guids;
    const QVector<QVector<SCfg_Item>*> lists = workList();
    for (QVector<SCfg_Item>* const list : lists) {
        for (SCfg_Item& item : *list) {
            items.append(&item);
            guids.append(item.m_qsGUID);
        }
    }
    SideBySide run(std::move(items), guids, m_bWillCancel);
    bool hasMore = true;
    while (hasMore || run.pool.isBusy()) {
        hasMore = beginPictures(run) && !run.isStopped;
        const bool mayBegin = hasMore && run.postponed.isEmpty() && run.pool.hasRoom();
        run.pool.step(mayBegin ? std::chrono::milliseconds(0) : TransferPool::maxStep);
    }
    return !run.isStopped;
}

/// Begins transfers until the pool is full, but looks at a limited number of pictures, so that the
/// running transfers go on. Returns false if nothing is left to look at.
bool CheckWorker_ThumbAndGif::beginPictures(SideBySide& run)
{
    const QVector<PreviewQueue::Picture> postponed = std::exchange(run.postponed, {});
    for (const PreviewQueue::Picture& next : postponed) {
        if (!run.pool.hasRoom() || run.isStopped) {
            run.postponed.append(next);
            continue;
        }
        beginPicture(run, next.item, next.isGif);
    }
    for (int looked = 0; looked < picturesPerTurn && run.pool.hasRoom() && !run.isStopped;
         ++looked) {
        const auto next = run.queue.take();
        if (!next)
            return !run.postponed.isEmpty();
        if (m_bWillCancel.isCancelled()) {
            run.isStopped = stopIfCancelled(next->isGif ? gif : thumb);
            return false;
        }
        beginPicture(run, next->item, next->isGif);
    }
    return true;
}

void CheckWorker_ThumbAndGif::beginPicture(SideBySide& run, int item, bool isGif)
{
    const Picture picture = look(isGif ? gif : thumb, item, *run.items.at(item));
    if (!picture.isPresent && run.pool.isFetching(picture.file)) {
        run.postponed.append({item, isGif});
        return;
    }
    switch (beginTurn(picture)) {
    case Turn::Stop:
        run.isStopped = true;
        return;
    case Turn::Over:
        m_progress.countFiles(1);
        return;
    case Turn::Fetch:
        startTransfer(run, picture);
        return;
    }
}

void CheckWorker_ThumbAndGif::startTransfer(SideBySide& run, const Picture& picture)
{
    TransferPool::Job job;
    job.url = picture.url;
    job.file = picture.file;
    job.contentUrl = picture.source.contentUrl;
    job.published = picture.source.published;
    // A retry may start from zero; the sum must not decrease.
    job.progress = [this, counted = qint64{0}](qint64 received, qint64 /*total*/) mutable {
        m_progress.addReceived(std::max<qint64>(received - counted, 0));
        counted = std::max(counted, received);
        return true;
    };
    job.ended = [this, &run, picture](const STransferOutcome& outcome) {
        const bool goesOn = endTurn(picture, outcome.m_eResult, outcome.m_failure);
        m_progress.countFiles(1);
        run.isStopped = run.isStopped || !goesOn;
    };
    run.pool.start(std::move(job));
}
