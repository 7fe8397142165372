// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "host/FileLock.h"

#include <QDeadlineTimer>
#include <QFile>

#include <cerrno>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

FileLock::FileLock(const QString& path)
    : m_name(QFile::encodeName(path))
{
}

FileLock::~FileLock()
{
    if (!isLocked())
        return;
    ::unlink(m_name.constData()); // while it is still ours
    ::close(m_handle);
}

FileLock::Result FileLock::lock(std::chrono::milliseconds longest, const CancelToken& cancel)
{
    const QDeadlineTimer deadline(longest);
    for (;;) {
        const Result result = tryLock();
        if (result != Result::Busy || deadline.hasExpired())
            return result;
        if (cancel.waitFor(std::chrono::milliseconds(20)))
            return Result::Cancelled;
    }
}

FileLock::Result FileLock::lock(const CancelToken& cancel)
{
    return lock(std::chrono::milliseconds::max(), cancel);
}

FileLock::Result FileLock::tryLock()
{
    while (!isLocked()) {
        const int handle =
            ::open(m_name.constData(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, 0666);
        if (handle < 0) {
            m_error = errno;
            return Result::CannotCreate;
        }
        if (::flock(handle, LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK) {
            ::close(handle);
            return Result::Busy;
        }
        // Between the two calls the last holder may have removed the file and another made a new
        // one.
        struct stat opened = {};
        struct stat named = {};
        if (::fstat(handle, &opened) == 0 && ::lstat(m_name.constData(), &named) == 0
            && opened.st_ino == named.st_ino && opened.st_dev == named.st_dev)
            m_handle = handle;
        else
            ::close(handle);
    }
    return Result::Locked;
}
