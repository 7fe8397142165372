// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "host/FileLock.h"

#include "host/SystemFile.h"

#include <QDeadlineTimer>

#include <cerrno>

FileLock::FileLock(const QString& path)
    : m_name(SystemFile::encodedName(path))
{
}

FileLock::~FileLock()
{
    if (!isLocked())
        return;
    SystemFile::remove(m_name); // before the release: afterwards it may belong to the next holder
    SystemFile::close(m_handle);
}

/// Polls, since waiting in the kernel could not be cancelled.
FileLock::Result FileLock::lock(std::chrono::milliseconds longest, const CancelToken& cancel)
{
    constexpr std::chrono::milliseconds pause(20);
    const QDeadlineTimer deadline(longest);
    Result result = tryLock();
    while (result == Result::Busy) {
        if (deadline.hasExpired())
            return Result::Busy;
        if (cancel.waitFor(pause))
            return Result::Cancelled;
        result = tryLock();
    }
    return result;
}

FileLock::Result FileLock::lock(const CancelToken& cancel)
{
    return lock(std::chrono::milliseconds::max(), cancel);
}

FileLock::Result FileLock::tryLock()
{
    while (!isLocked()) {
        const int handle = SystemFile::openOrCreate(m_name);
        if (handle < 0 && errno == EBUSY) // the last holder is about to release what it has removed
            return Result::Busy;
        if (handle < 0) {
            m_error = errno;
            return Result::CannotCreate;
        }
        if (SystemFile::lock(handle) == SystemFile::Lock::Held) {
            SystemFile::close(handle);
            return Result::Busy;
        }
        // The last holder may have removed it between the two calls.
        if (SystemFile::hasName(handle, m_name))
            m_handle = handle;
        else
            SystemFile::close(handle);
    }
    return Result::Locked;
}
