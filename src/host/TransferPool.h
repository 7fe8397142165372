// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "host/CancelToken.h"
#include "host/MvHostExport.h"
#include "host/SPublishedContent.h"
#include "host/STransferOutcome.h"

#include <QString>

#include <chrono>
#include <functional>
#include <memory>

/// Downloads several files side by side, on the thread of its caller.
///
///     TransferPool pool(hostSettings().transfersSideBySide, token);
///     for (const File& file : files)
///         pool.start({file.url, file.path});
///     while (pool.isBusy())
///         pool.step();
///
/// Every transfer has the guarantees of CurWrapper: a temporary file that is renamed when it is
/// complete, limits, retries and resumption. Transfers end in any order. Connections are kept open
/// for later transfers; a server that offers HTTP/2 over TLS gets one connection that carries all
/// transfers of a pool for more than one.
///
/// One object serves one thread; only cancel() may be called from another. No target may be fetched
/// twice at a time. Limits, proxy and trusted authorities are read from hostSettings() at every
/// transfer.
class MVHOST_EXPORT TransferPool
{
public:
    /// Reports the bytes received so far and the expected total, 0 while unknown; returns whether
    /// to continue. Called at least ten times a second while the transfer runs, even while nothing
    /// arrives, and once when all bytes have arrived.
    using Progress = std::function<bool(qint64 received, qint64 total)>;
    /// Takes the outcome of a transfer; called once for each.
    using Ended = std::function<void(const STransferOutcome& outcome)>;

    /// One transfer.
    struct Job
    {
        QString url;         ///< http or https, encoded as for CurWrapper::download()
        QString file;        ///< in a folder that exists
        bool resume = false; ///< see CurWrapper::download()
        SValidators known;   ///< unless empty: fetch only if the server has another version
        /// If known, the file is stored only with this content. Another one is requested once more,
        /// past all caches.
        SPublishedContent published;
        /// If not empty, requested first; `url` only if the server does not have it. `url` is the
        /// one that the outcome names.
        QString contentUrl;
        Progress progress; ///< may be empty
        Ended ended;       ///< may be empty
    };

    /// Runs up to `maxTransfers` at a time, 1 to HostSettings::maxTransfersSideBySide. A cancelled
    /// token ends the running transfers and those started later.
    explicit TransferPool(int maxTransfers, CancelToken cancel = CancelToken());
    /// Ends the running transfers without calling back.
    ~TransferPool();
    Q_DISABLE_COPY_MOVE(TransferPool)

    /// Adds a transfer, which begins in this call if hasRoom(), otherwise when another one has
    /// ended; those that wait begin in order. All its callbacks are invoked by step(), and may
    /// start other transfers.
    void start(Job job);

    /// Returns whether another transfer would begin at once.
    bool hasRoom() const;
    /// Returns whether a started transfer has not ended yet.
    bool isBusy() const;

    /// Returns whether a transfer that has begun and not ended writes this file.
    bool isFetching(const QString& file) const;

    /// The longest wait of step().
    static constexpr std::chrono::milliseconds maxStep{50};
    /// Works on the transfers: returns as soon as some have ended, after calling back, and at the
    /// latest after `longest`, at most maxStep. A callback must neither call it nor destroy the
    /// pool.
    void step(std::chrono::milliseconds longest = maxStep);

    /// Ends all transfers started before the next step() as cancelled, even stalled and waiting
    /// ones, in that step(). Any thread. Does nothing while the pool is idle.
    void cancel();

private:
    class Private;
    std::unique_ptr<Private> d;
};
