// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "download/AcceptedRelease.h"
#include "host/CancelToken.h"
#include "host/ETransferResult.h"
#include "host/STransferFailure.h"
#include "host/SValidators.h"

#include <QString>
#include <QtGlobal>

#include <chrono>

class CurWrapper;
class ProgressReport;

/// The transfers of a check's worker, limited in size, which end as soon as the token is cancelled.
/// Internal to the library; the worker's thread only.
class CheckTransfer
{
public:
    /// Wrapper and report belong to the worker and must outlive this object.
    CheckTransfer(CurWrapper& wrapper, ProgressReport& progress, CancelToken cancel);

    /// Limits the total time of each following transfer, retries included; zero, the default, means
    /// no limit.
    void setTimeLimit(std::chrono::milliseconds limit) { m_timeLimit = limit; }

    /// Fetches `url` into `file`. Refuses a body larger than `maxBytes`, of which nothing is kept
    /// on disk.
    ETransferResult fetch(const QString& url, const QString& file, qint64 maxBytes)
    {
        return fetchIfChanged(url, file, maxBytes, {});
    }
    /// Does the same, but sends nothing if the server's version is the known one: see
    /// isNotModified().
    ETransferResult fetchIfChanged(const QString& url, const QString& file, qint64 maxBytes,
                                   const SValidators& known);
    /// Does the same, but if the content is known, accepts only that and requests it by its digest
    /// first.
    ETransferResult fetchPublished(const QString& url, const QString& file,
                                   const AcceptedRelease::Source& source, qint64 maxBytes);
    /// Returns whether the last transfer succeeded without a body.
    bool isNotModified() const;
    /// Returns the validators of the version that the last transfer has brought.
    SValidators validators() const;
    /// Returns why the last transfer failed; no failure after a success.
    const STransferFailure& failure() const { return m_failure; }

private:
    void begin(const QString& url, qint64 maxBytes);
    ETransferResult end();
    static bool goOn(qint64 received, qint64 total, void* user);

    CurWrapper& m_wrapper;
    ProgressReport& m_progress;
    CancelToken m_cancel;
    std::chrono::milliseconds m_timeLimit{0};
    std::chrono::steady_clock::time_point m_deadline;
    QString m_url; // of the last transfer
    qint64 m_maxBytes = 0;
    bool m_isTooLarge = false;
    bool m_isLate = false;
    STransferFailure m_failure;
};
