// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "download/CheckTransfer.h"

#include "download/ProgressReport.h"
#include "host/CurWrapper.h"

#include <utility>

CheckTransfer::CheckTransfer(CurWrapper& wrapper, ProgressReport& progress, CancelToken cancel)
    : m_wrapper(wrapper)
    , m_progress(progress)
    , m_cancel(std::move(cancel))
{
}

bool CheckTransfer::isNotModified() const
{
    return m_wrapper.outcome().m_bNotModified;
}

SValidators CheckTransfer::validators() const
{
    return m_wrapper.outcome().m_validators;
}

ETransferResult CheckTransfer::fetchIfChanged(const QString& url, const QString& file,
                                              qint64 maxBytes, const SValidators& known)
{
    begin(url, maxBytes);
    m_wrapper.downloadIfChanged(url, file, known);
    return end();
}

ETransferResult CheckTransfer::fetchPublished(const QString& url, const QString& file,
                                              const AcceptedRelease::Source& source,
                                              qint64 maxBytes)
{
    begin(url, maxBytes);
    m_wrapper.downloadPublished(url, file, source.contentUrl, source.published);
    return end();
}

void CheckTransfer::begin(const QString& url, qint64 maxBytes)
{
    m_url = url;
    m_maxBytes = maxBytes;
    m_isTooLarge = false;
    m_isLate = false;
    m_deadline = std::chrono::steady_clock::now() + m_timeLimit;
    m_wrapper.setDownloadProgressCallback(&CheckTransfer::goOn, this);
}

ETransferResult CheckTransfer::end()
{
    m_wrapper.setDownloadProgressCallback(nullptr, nullptr);
    m_progress.endTransfer();
    m_failure = m_wrapper.failure();
    if (m_isTooLarge) {
        m_failure.m_eCause = eFailure_TooLarge;
        m_failure.m_qsDetails =
            QStringLiteral("%1: larger than %2 bytes").arg(m_url).arg(m_maxBytes);
        return eTransfer_TooLarge;
    }
    if (m_isLate) {
        m_failure.m_eCause = eFailure_ConnectionLost;
        m_failure.m_qsDetails =
            QStringLiteral("%1: not complete within %2 ms").arg(m_url).arg(m_timeLimit.count());
        return eTransfer_Network;
    }
    return static_cast<ETransferResult>(m_wrapper.result());
}

/// Also called when all bytes have arrived but the file is not yet renamed, so a file that is too
/// large is never stored.
bool CheckTransfer::goOn(qint64 received, qint64 total, void* user)
{
    Q_UNUSED(total)
    auto* const self = static_cast<CheckTransfer*>(user);
    if (self->m_cancel.isCancelled())
        return false;
    self->m_progress.noteReceived(received);
    const bool hasLimit = self->m_timeLimit.count() > 0;
    self->m_isTooLarge = self->m_isTooLarge || received > self->m_maxBytes;
    self->m_isLate = hasLimit && std::chrono::steady_clock::now() > self->m_deadline;
    return !self->m_isTooLarge && !self->m_isLate;
}
