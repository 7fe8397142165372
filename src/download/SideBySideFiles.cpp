// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "download/SideBySideFiles.h"

#include "download/DownloadPacing.h"

#include <algorithm>
#include <utility>

using std::chrono::milliseconds;

namespace {

constexpr milliseconds pollInterval(10);
constexpr milliseconds waitingLineInterval(500);

} // namespace

SideBySideFiles::Entry::Entry(SFileInfo& info, int index, AcceptedRelease::Pointer release)
    : turn(info, index, std::move(release), [this](const QString& line) { lines.append(line); })
{
}

SideBySideFiles::SideBySideFiles(const QVector<SFileInfo*>& files, int maxTransfers,
                                 CancelToken cancel, CBasePtr<CoreContext> context, Reports reports)
    : m_files(files)
    , m_cancel(std::move(cancel))
    , m_context(std::move(context))
    , m_reports(std::move(reports))
    , m_nextBegin(Clock::now() + DownloadPacing::step())
    , m_pool(maxTransfers, m_cancel)
{
}

SideBySideFiles::End SideBySideFiles::run()
{
    while (m_ended < m_files.size()) {
        if (!m_cancel.isCancelled()) {
            beginReady();
            lookAtOthers();
        } else if (!m_pool.isBusy()) {
            return cancelled();
        }
        if (m_ended < m_files.size())
            wait();
    }
    return End::Complete;
}

/// A progress signal may have cancelled the download since the loop's last look.
bool SideBySideFiles::mayBegin() const
{
    return m_pool.hasRoom() && !m_cancel.isCancelled();
}

void SideBySideFiles::beginReady()
{
    const QVector<int> postponed = std::exchange(m_postponed, {});
    for (const int index : postponed) {
        if (mayBegin())
            begin(index);
        else
            m_postponed.append(index);
    }
    while (m_next < m_files.size() && mayBegin() && Clock::now() >= m_nextBegin) {
        m_nextBegin = Clock::now() + DownloadPacing::step();
        begin(m_next++);
    }
}

void SideBySideFiles::begin(int index)
{
    SFileInfo& info = *m_files.at(index);
    if (m_pool.isFetching(FileView(info).file())) {
        m_postponed.append(index);
        return;
    }
    Entry& entry = *(m_entries[index] = std::make_unique<Entry>(info, index, m_release));
    if (!entry.turn.take()) {
        m_waiting.append(&entry);
        return;
    }
    entry.turn.begin();
    m_reports.begun(entry.turn.url(), entry.turn.file());
    const STransferFailure fault = entry.turn.prepare();
    if (fault.isFailure()) {
        m_reports.failed(fault);
        finish(entry);
    } else if (entry.turn.isPresent()) { // another download has fetched it meanwhile
        entry.turn.end({}, eTransfer_Success, false, m_context, FileTurn::OfOthers::Keep);
        finish(entry);
    } else {
        transfer(entry);
    }
}

void SideBySideFiles::transfer(Entry& entry)
{
    TransferPool::Job job;
    job.url = entry.turn.url();
    job.file = entry.turn.file();
    job.contentUrl = entry.turn.source().contentUrl;
    job.published = entry.turn.source().published;
    job.progress = [this, &entry](qint64 received, qint64 total) {
        FileRecord(entry.turn.info()).setCounts({received, total});
        note(entry, {received, total});
        return true;
    };
    job.ended = [this, &entry](const STransferOutcome& outcome) {
        if (outcome.m_failure.isFailure() && entry.turn.isRequired())
            m_reports.failed(outcome.m_failure);
        entry.turn.end(outcome.m_failure, outcome.m_eResult, true, m_context,
                       FileTurn::OfOthers::Keep);
        if (outcome.m_eResult == eTransfer_Cancelled)
            leave(entry);
        else
            finish(entry);
    };
    m_pool.start(std::move(job));
}

/// A retry may start from zero; the progress must not decrease.
void SideBySideFiles::note(Entry& entry, const FileView::Counts& counts)
{
    const qint64 before = std::exchange(entry.received, counts.receivedBytes);
    if (counts.receivedBytes > before)
        m_reports.received(counts.receivedBytes - before);
    if (counts.totalBytes == 0)
        return;
    const double part =
        static_cast<double>(counts.receivedBytes) / static_cast<double>(counts.totalBytes);
    if (part <= entry.part)
        return;
    entry.part = std::min(part, 1.0);
    tellProgress();
}

/// The other threads' outcomes are ignored: if a file is still missing, the next download fetches
/// it.
void SideBySideFiles::lookAtOthers()
{
    const QVector<Entry*> waiting = std::exchange(m_waiting, {});
    for (Entry* const entry : waiting) {
        const Clock::time_point now = Clock::now();
        if (now >= entry->nextLine) {
            entry->nextLine = now + waitingLineInterval;
            entry->turn.logWaiting();
        }
        note(*entry, FileView(entry->turn.info()).counts());
        if (entry->turn.isTakenByOther()) {
            m_waiting.append(entry);
            continue;
        }
        entry->turn.logEndOfWaiting();
        finish(*entry);
    }
}

void SideBySideFiles::finish(Entry& entry)
{
    leave(entry);
    tellProgress();
}

void SideBySideFiles::leave(Entry& entry)
{
    for (const QString& line : std::as_const(entry.lines))
        FileTurn::logNow(line);
    ++m_ended;
    m_entries.erase(entry.turn.index());
}

void SideBySideFiles::tellProgress()
{
    double done = m_ended;
    for (const auto& [index, entry] : m_entries)
        done += entry->part;
    const double share = done / m_files.size();
    if (share > m_told)
        m_reports.progress(share);
    m_told = std::max(m_told, share);
}

void SideBySideFiles::wait()
{
    if (m_pool.isBusy())
        m_pool.step();
    else
        m_cancel.waitFor(pollInterval);
}

SideBySideFiles::End SideBySideFiles::cancelled()
{
    const QVector<Entry*> waiting = std::exchange(m_waiting, {});
    for (Entry* const entry : waiting)
        leave(*entry);
    return !waiting.isEmpty() ? End::CancelledWaiting : End::CancelledBeforeFile;
}
