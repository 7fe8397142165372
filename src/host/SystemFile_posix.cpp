// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "host/SystemFile.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <cerrno>
#include <cstdio>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/statvfs.h>
#include <unistd.h>

namespace {

/// Permissions of every file that is created; the umask takes away what the user does not want.
constexpr mode_t newFileMode = 0666;
constexpr mode_t publicMode = 0644;
constexpr mode_t privateMode = 0600;
constexpr mode_t publicFolderMode = 0755;
constexpr mode_t privateFolderMode = 0700;
constexpr mode_t allPermissions = 07777;

bool flushHandle(int handle, int (*flush)(int))
{
    if (handle < 0)
        return false;
    const bool isFlushed = flush(handle) == 0;
    const int reason = errno;
    ::close(handle);
    errno = reason;
    return isFlushed;
}

int openFolder(const QByteArray& folder)
{
    return ::open(folder.constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
}

bool isOne(const struct stat& first, const struct stat& second)
{
    return first.st_dev == second.st_dev && first.st_ino == second.st_ino;
}

bool renameAs(const QByteArray& from, const QByteArray& to, unsigned int flags)
{
    return ::renameat2(AT_FDCWD, from.constData(), AT_FDCWD, to.constData(), flags) == 0;
}

} // namespace

QByteArray SystemFile::encodedName(const QString& name)
{
    return QFile::encodeName(name);
}

QString SystemFile::decodedName(const QByteArray& name)
{
    return QFile::decodeName(name);
}

int SystemFile::create(const QByteArray& name, Readers readers)
{
    const mode_t mode = readers == Readers::Owner ? privateMode : newFileMode;
    const int handle = ::open(name.constData(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, mode);
    if (handle < 0 || readers != Readers::Everyone || ::fchmod(handle, publicMode) == 0)
        return handle;
    const int reason = errno;
    ::close(handle);
    ::unlink(name.constData());
    errno = reason;
    return -1;
}

int SystemFile::openOrCreate(const QByteArray& name)
{
    return ::open(name.constData(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, newFileMode);
}

int SystemFile::openRegular(const QByteArray& name, Access access)
{
    const int flags = (access == Access::Read ? O_RDONLY : O_RDWR | O_CREAT)
        | (access == Access::Append ? O_APPEND : 0);
    // Without O_NONBLOCK, opening a pipe waits for its other end.
    const int handle = ::open(name.constData(), flags | O_NONBLOCK | O_CLOEXEC, newFileMode);
    struct stat status = {};
    if (handle < 0 || (::fstat(handle, &status) == 0 && S_ISREG(status.st_mode)))
        return handle;
    ::close(handle);
    errno = 0;
    return -1;
}

void SystemFile::close(int handle)
{
    ::close(handle);
}

bool SystemFile::writeAt(int handle, const char* data, qint64 length, qint64 position)
{
    while (length > 0) {
        const ssize_t written = ::pwrite(handle, data, static_cast<std::size_t>(length), position);
        if (written < 0 && errno == EINTR)
            continue;
        if (written <= 0)
            return false;
        data += written;
        length -= written;
        position += written;
    }
    return true;
}

qint64 SystemFile::readAt(int handle, char* data, qint64 length, qint64 position)
{
    ssize_t count = 0;
    do {
        count = ::pread(handle, data, static_cast<std::size_t>(length), position);
    } while (count < 0 && errno == EINTR);
    return count;
}

qint64 SystemFile::readNext(int handle, char* data, qint64 length)
{
    ssize_t count = 0;
    do {
        count = ::read(handle, data, static_cast<std::size_t>(length));
    } while (count < 0 && errno == EINTR);
    return count;
}

bool SystemFile::truncate(int handle)
{
    return ::ftruncate(handle, 0) == 0;
}

SystemFile::Lock SystemFile::lock(int handle)
{
    if (::flock(handle, LOCK_EX | LOCK_NB) == 0)
        return Lock::Taken;
    return errno == EWOULDBLOCK ? Lock::Held : Lock::Impossible;
}

bool SystemFile::hasName(int handle, const QByteArray& name)
{
    struct stat opened = {};
    struct stat named = {};
    return ::fstat(handle, &opened) == 0 && ::lstat(name.constData(), &named) == 0
        && isOne(opened, named);
}

bool SystemFile::hasAnyName(int handle)
{
    struct stat status = {};
    return ::fstat(handle, &status) == 0 && status.st_nlink > 0;
}

bool SystemFile::isSame(const QByteArray& first, const QByteArray& second)
{
    struct stat one = {};
    struct stat other = {};
    return ::stat(first.constData(), &one) == 0 && ::stat(second.constData(), &other) == 0
        && isOne(one, other);
}

bool SystemFile::isFolder(const QByteArray& name)
{
    struct stat status = {};
    return ::stat(name.constData(), &status) == 0 && S_ISDIR(status.st_mode);
}

QPair<quint64, quint64> SystemFile::identity(const QByteArray& name)
{
    struct stat status = {};
    if (::stat(name.constData(), &status) != 0)
        return {0, 0};
    return {status.st_dev, status.st_ino};
}

bool SystemFile::isLink(const QString& name)
{
    return QFileInfo(QDir::cleanPath(name)).isSymLink();
}

QString SystemFile::realPath(const QString& name)
{
    return QFileInfo(name).canonicalFilePath();
}

bool SystemFile::createFolder(const QByteArray& name, const QByteArray& model)
{
    struct stat status = {};
    const mode_t mode = ::stat(model.constData(), &status) == 0 ? status.st_mode & allPermissions
                                                                : publicFolderMode;
    // The umask does not apply to permissions that somebody has chosen.
    return ::mkdir(name.constData(), privateFolderMode) == 0
        && ::chmod(name.constData(), mode) == 0;
}

bool SystemFile::flush(int handle)
{
    return ::fsync(handle) == 0;
}

bool SystemFile::hasTakenAllBytes(int handle)
{
    // Closing a duplicate leaves the original its lock.
    const int second = ::fcntl(handle, F_DUPFD_CLOEXEC, 0);
    return second >= 0 && ::close(second) == 0;
}

bool SystemFile::flushFolder(const QByteArray& folder)
{
    return flushHandle(openFolder(folder), &::fsync);
}

bool SystemFile::flushTree(const QByteArray& folder)
{
    return flushHandle(openFolder(folder), &::syncfs);
}

bool SystemFile::rename(const QByteArray& from, const QByteArray& to)
{
    return std::rename(from.constData(), to.constData()) == 0;
}

bool SystemFile::renameToNew(const QByteArray& from, const QByteArray& to)
{
    return renameAs(from, to, RENAME_NOREPLACE);
}

bool SystemFile::exchange(const QByteArray& first, const QByteArray& second)
{
    return renameAs(first, second, RENAME_EXCHANGE);
}

bool SystemFile::link(const QByteArray& existing, const QByteArray& added)
{
    return ::link(existing.constData(), added.constData()) == 0;
}

bool SystemFile::remove(const QByteArray& name)
{
    return ::unlink(name.constData()) == 0;
}

int SystemFile::obstacleIn(const QByteArray& folder)
{
    if (::access(folder.constData(), W_OK | X_OK) != 0)
        return errno;
    struct statvfs space = {};
    const bool isFull = ::statvfs(folder.constData(), &space) == 0
        && (space.f_bavail == 0 || (space.f_files > 0 && space.f_favail == 0));
    return isFull ? ENOSPC : 0;
}
