// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "host/TransferPool.h"

#include "host/HostSettings.h"

#include "Download.h"
#include "NetworkThread.h"

#include <algorithm>
#include <atomic>
#include <condition_variable>
#include <deque>
#include <mutex>
#include <utility>
#include <vector>

class TransferPool::Private
{
public:
    using Running = std::shared_ptr<Download>;

    Private(int atOnce, CancelToken token)
        : maxTransfers(
            static_cast<std::size_t>(std::clamp(atOnce, 1, HostSettings::maxTransfersSideBySide)))
        , cancelToken(std::move(token))
    {
    }

    bool hasRoom() const { return running.size() < maxTransfers; }
    void beginWaiting();
    void reportProgress();
    void beginRequests();
    void cancelAll();
    void cancelRunning(const Running& download);
    void waitForEnd(std::chrono::milliseconds longest);
    void reportEnded();

    const std::size_t maxTransfers;
    const CancelToken cancelToken;
    std::atomic<bool> isCancelled{false}; // by cancel(), until the next step() that has transfers
    std::deque<Job> waiting;
    std::vector<Running> running;
    std::vector<Running> unasked; // of the running ones, those without a request yet

    std::mutex mutex; // guards hasEnded, and waiting for a change
    std::condition_variable changed;
    bool hasEnded = false; // a running download

    NetworkThread network; // last: ends before what its downloads use
};

void TransferPool::Private::beginWaiting()
{
    while (!waiting.empty() && hasRoom() && !isCancelled && !cancelToken.isCancelled()) {
        const auto download = std::make_shared<Download>(std::move(waiting.front()), [this] {
            {
                const std::lock_guard<std::mutex> lock(mutex);
                hasEnded = true;
            }
            changed.notify_all();
        });
        waiting.pop_front();
        running.push_back(download);
        unasked.push_back(download);
    }
}

void TransferPool::Private::reportProgress()
{
    const std::vector<Running> present = running; // a callback may start another
    for (const Running& download : present) {
        const Download::Counts counts = download->counts();
        const auto& progress = download->job().progress;
        const bool isWhole = counts.total > 0 && counts.received == counts.total; // told by the end
        if (!progress || isWhole || progress(counts.received, counts.total))
            continue;
        unasked.erase(std::remove(unasked.begin(), unasked.end(), download), unasked.end());
        cancelRunning(download);
    }
}

/// After the first report, whose refusal might otherwise come after a small file is complete.
void TransferPool::Private::beginRequests()
{
    for (const Running& download : std::exchange(unasked, {}))
        network.run([download](QNetworkAccessManager& manager) { download->begin(manager); });
}

void TransferPool::Private::cancelRunning(const Running& download)
{
    network.run([download](QNetworkAccessManager&) { download->cancel(); });
}

void TransferPool::Private::cancelAll()
{
    unasked.clear();
    for (const Running& download : running)
        cancelRunning(download);
    const std::deque<Job> none = std::exchange(waiting, {});
    for (const Job& job : none) {
        const auto download = std::make_shared<Download>(job, [] {});
        download->cancel();
        running.push_back(download); // has ended
    }
}

void TransferPool::Private::waitForEnd(std::chrono::milliseconds longest)
{
    std::unique_lock<std::mutex> lock(mutex);
    changed.wait_for(lock, longest, [this] { return hasEnded || isCancelled; });
    hasEnded = false;
}

void TransferPool::Private::reportEnded()
{
    const auto firstEnded =
        std::stable_partition(running.begin(), running.end(),
                              [](const Running& download) { return !download->outcome(); });
    const std::vector<Running> ended(firstEnded, running.end());
    running.erase(firstEnded, running.end());
    for (const Running& download : ended) {
        const STransferOutcome outcome = download->outcome().value_or(STransferOutcome());
        const Job& job = download->job();
        const Download::Counts counts = download->counts();
        if (job.progress && outcome.m_eResult == eTransfer_Success && !outcome.m_bNotModified)
            job.progress(counts.received, counts.received);
        if (job.ended)
            job.ended(outcome);
    }
}

TransferPool::TransferPool(int maxTransfers, CancelToken cancel)
    : d(std::make_unique<Private>(maxTransfers, std::move(cancel)))
{
}

TransferPool::~TransferPool() = default;

void TransferPool::start(Job job)
{
    if (!isBusy())
        d->isCancelled = false; // a cancel of nothing
    d->waiting.push_back(std::move(job));
    d->beginWaiting();
}

bool TransferPool::hasRoom() const
{
    return d->hasRoom() && d->waiting.empty();
}

bool TransferPool::isBusy() const
{
    return !d->running.empty() || !d->waiting.empty();
}

bool TransferPool::isFetching(const QString& file) const
{
    return std::any_of(
        d->running.cbegin(), d->running.cend(),
        [&file](const Private::Running& download) { return download->job().file == file; });
}

void TransferPool::step(std::chrono::milliseconds longest)
{
    if (!isBusy())
        return;
    if (d->isCancelled.exchange(false) || d->cancelToken.isCancelled())
        d->cancelAll();
    d->reportProgress();
    d->beginRequests();
    d->waitForEnd(std::clamp(longest, std::chrono::milliseconds(0), maxStep));
    d->reportEnded();
    d->beginWaiting();
}

void TransferPool::cancel()
{
    {
        const std::lock_guard<std::mutex> lock(d->mutex);
        d->isCancelled = true;
    }
    d->changed.notify_all();
}
