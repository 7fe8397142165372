#pragma once

#include <QString>
#include <QtGlobal>

#include <atomic>
#include <chrono>

class CurWrapper;

/// The transfers of a check's worker, bounded in size and in how long they outlast a cancellation.
///
/// CurWrapper::cancel() ends only the transfer in progress. One that begins just after it may still
/// bring its file, but only within half a second; none goes on while the thread is being
/// interrupted for the process's end. Internal to the library; the worker's thread only.
class CheckTransfer
{
public:
    /// Both belong to the worker and outlive this object.
    CheckTransfer(CurWrapper& wrapper, const std::atomic<bool>& willCancel);

    /// Fetches `url` into `file`; the result is that of CurWrapper::result(), and 6 for a body
    /// larger than `mostBytes`, of which nothing stays on disk.
    int fetch(const QString& url, const QString& file, qint64 mostBytes);
    /// Why the last transfer failed, for people; empty after a success.
    QString errorText() const { return m_error; }

    /// Whether the thread has been asked to end, which coordinators do at the process's end.
    static bool isInterrupted();

private:
    static bool goOn(qint64 received, qint64 total, void* user);
    bool mayGoOn(qint64 received);

    CurWrapper& m_wrapper;
    const std::atomic<bool>& m_willCancel;
    qint64 m_mostBytes = 0;
    bool m_tooLarge = false;
    bool m_seenCancel = false;
    std::chrono::steady_clock::time_point m_cancelSeen;
    QString m_error;
};
