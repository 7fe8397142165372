// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "host/FileLock.h"

#include "host/NewFileMode.h"

#include <QDeadlineTimer>
#include <QFile>

#include <cerrno>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

/// Returns false once the file has been removed, even if another one now has its name.
bool hasName(int handle, const char* name)
{
    struct stat opened = {};
    struct stat named = {};
    return ::fstat(handle, &opened) == 0 && ::lstat(name, &named) == 0
        && opened.st_dev == named.st_dev && opened.st_ino == named.st_ino;
}

} // namespace

FileLock::FileLock(const QString& path)
    : m_name(QFile::encodeName(path))
{
}

FileLock::~FileLock()
{
    if (!isLocked())
        return;
    ::unlink(m_name.constData()); // before the release: afterwards it may belong to the next holder
    ::close(m_handle);
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
        const int handle =
            ::open(m_name.constData(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, newFileMode);
        if (handle < 0) {
            m_error = errno;
            return Result::CannotCreate;
        }
        if (::flock(handle, LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK) {
            ::close(handle);
            return Result::Busy;
        }
        // The last holder may have removed it between the two calls.
        if (hasName(handle, m_name.constData()))
            m_handle = handle;
        else
            ::close(handle);
    }
    return Result::Locked;
}
