#include "host/FileLock.h"

#include <QDeadlineTimer>

FileLock::FileLock(const QString& path)
    : m_file(path)
{
    m_file.setStaleLockTime(0);
}

/// QLockFile doubles its pauses up to seconds when it waits by itself, which starves those that
/// came early.
FileLock::Result FileLock::lock(std::chrono::milliseconds longest, const CancelToken& cancel)
{
    constexpr std::chrono::milliseconds pause(20);
    const QDeadlineTimer deadline(longest);
    while (!m_file.tryLock(0)) {
        if (m_file.error() != QLockFile::LockFailedError)
            return Result::CannotCreate;
        if (deadline.hasExpired())
            return Result::Busy;
        if (cancel.waitFor(pause))
            return Result::Cancelled;
    }
    return Result::Locked;
}

FileLock::Result FileLock::lock(const CancelToken& cancel)
{
    return lock(std::chrono::milliseconds::max(), cancel);
}
