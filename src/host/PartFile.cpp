// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "host/PartFile.h"

#include "host/ContentDigest.h"
#include "host/FollowingDigest.h"
#include "host/NewFileMode.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QRandomGenerator>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/statvfs.h>
#include <unistd.h>

namespace {

constexpr int createAttempts = 16;
/// Above this size, a thread of its own computes the digest.
constexpr qint64 maxOwnDigestBytes = 4 * 1024 * 1024;

const QLatin1String partPrefix(".mv-");
const QLatin1String partSuffix(".part");

/// Returns the path of a new part file; `beside` ends with a slash or is empty.
QByteArray partPath(const QByteArray& beside)
{
    constexpr int digits = 16;
    constexpr int bitsOfDigit = 4;
    QByteArray path;
    path.reserve(beside.size() + partPrefix.size() + digits + partSuffix.size());
    path.append(beside).append(partPrefix.data());
    quint64 number = QRandomGenerator::global()->generate64();
    for (int i = 0; i < digits; ++i, number >>= bitsOfDigit)
        path.append("0123456789abcdef"[number & 0xf]);
    return path.append(partSuffix.data());
}

bool isPartName(const QString& name)
{
    return name.startsWith(partPrefix) && name.endsWith(partSuffix);
}

EFailureCause causeOf(int error)
{
    switch (error) {
    case ENOSPC:
    case EDQUOT:
        return eFailure_DiskFull;
    case EACCES:
    case EPERM:
    case EROFS:
        return eFailure_NoPermission;
    default:
        return eFailure_LocalFile;
    }
}

/// Returns the errno that explains why a folder could not be created, ENOENT by default.
int obstacleTo(const QString& folder)
{
    QFileInfo ancestor(folder);
    while (!ancestor.exists() && !ancestor.isRoot())
        ancestor.setFile(ancestor.path());
    const QByteArray path = QFile::encodeName(ancestor.filePath());
    if (::access(path.constData(), W_OK | X_OK) != 0)
        return errno;
    struct statvfs space = {};
    const bool isFull = ::statvfs(path.constData(), &space) == 0
        && (space.f_bavail == 0 || (space.f_files > 0 && space.f_favail == 0));
    return isFull ? ENOSPC : ENOENT;
}

enum class Lock {
    Taken,      ///< by this call
    Held,       ///< by another writer
    Impossible, ///< on this file system: then nothing counts as a remainder
};

Lock lock(int handle)
{
    if (::flock(handle, LOCK_EX | LOCK_NB) == 0)
        return Lock::Taken;
    return errno == EWOULDBLOCK ? Lock::Held : Lock::Impossible;
}

bool isFolder(const QByteArray& path)
{
    struct stat status = {};
    return ::stat(path.constData(), &status) == 0 && S_ISDIR(status.st_mode);
}

/// The new name already exists, so failures are ignored: some file systems cannot flush a folder.
void flushFolder(const QString& folder)
{
    const QByteArray path = QFile::encodeName(folder);
    const int handle = ::open(path.constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (handle < 0)
        return;
    ::fsync(handle);
    ::close(handle);
}

/// Returns whether the system has accepted all bytes: file systems that write late, such as NFS,
/// report a failure only when a handle is closed. Closes a duplicate, as the original keeps the
/// lock.
bool tookAllBytes(int handle)
{
    const int second = ::fcntl(handle, F_DUPFD_CLOEXEC, 0);
    return second >= 0 && ::close(second) == 0;
}

/// Returns false once the name of the open file has been removed.
bool stillHasName(int handle)
{
    struct stat status = {};
    return ::fstat(handle, &status) == 0 && status.st_nlink > 0;
}

} // namespace

PartFile::PartFile() = default;

PartFile::~PartFile()
{
    discard();
}

bool PartFile::open(const QString& target, FolderCheck check)
{
    discard();
    m_target = target;
    m_path = QFile::encodeName(target);
    m_check = check;
    m_size = 0;
    m_beginning.clear();
    m_eCause = eFailure_None;
    m_error.clear();
    m_digest.reset();
    if (m_path.isEmpty() || m_path.endsWith('/')
        || (check == FolderCheck::AtOnce && isFolder(m_path)))
        return failAsFolder();
    return createLocked();
}

bool PartFile::createLocked()
{
    const QByteArray beside = m_path.left(m_path.lastIndexOf('/') + 1);
    for (int attempt = 0; attempt < createAttempts; ++attempt) {
        m_name = partPath(beside);
        m_handle = ::open(m_name.constData(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, newFileMode);
        if (m_handle < 0 && errno == EEXIST)
            continue;
        if (m_handle < 0 && errno == ENOENT) {
            const int obstacle = obstacleTo(QFileInfo(m_target).path());
            return obstacle == ENOENT
                ? fail(eFailure_LocalFile, QStringLiteral("its folder does not exist"))
                : failWith(obstacle);
        }
        if (m_handle < 0)
            return failWith(errno);
        // Between creation and lock, a sweep may have mistaken the file for a remainder and removed
        // it.
        if (lock(m_handle) != Lock::Held && stillHasName(m_handle))
            return true;
        close();
    }
    return fail(eFailure_LocalFile, QStringLiteral("no temporary file could be created beside it"));
}

void PartFile::startDigest()
{
    m_following.reset();
    m_digest = std::make_unique<ContentDigest>();
}

QByteArray PartFile::digest() const
{
    if (m_following)
        return m_following->hex();
    return m_digest ? m_digest->hex() : QByteArray();
}

/// Adds what has just been written.
void PartFile::addToDigest(const char* data, qint64 length)
{
    if (m_following)
        return m_following->advanceTo(m_size);
    if (!m_digest)
        return;
    m_digest->add(data, length);
    if (m_size > maxOwnDigestBytes)
        m_following = std::make_unique<FollowingDigest>(m_handle, std::move(m_digest), m_size);
}

bool PartFile::write(const char* data, qint64 length)
{
    while (length > 0) {
        const ssize_t written = ::write(m_handle, data, static_cast<std::size_t>(length));
        if (written < 0 && errno == EINTR)
            continue;
        if (written <= 0)
            return failWith(errno);
        keepBeginning(data, written);
        m_size += written;
        addToDigest(data, written);
        data += written;
        length -= written;
    }
    return true;
}

void PartFile::keepBeginning(const char* data, qint64 length)
{
    const qint64 missing = beginningBytes - m_beginning.size();
    if (missing > 0)
        m_beginning.append(data, static_cast<int>(std::min(missing, length)));
}

bool PartFile::restart()
{
    if (::ftruncate(m_handle, 0) != 0 || ::lseek(m_handle, 0, SEEK_SET) != 0)
        return failWith(errno);
    m_size = 0;
    if (m_digest || m_following)
        startDigest();
    m_beginning.clear();
    return true;
}

bool PartFile::commit(Flush flush)
{
    const bool isStored = flush == Flush::Yes ? ::fsync(m_handle) == 0 : tookAllBytes(m_handle);
    if (!isStored)
        return failWith(errno);
    if (!rename())
        return false;
    close();
    if (flush == Flush::Yes)
        flushFolder(QFileInfo(m_target).path());
    return true;
}

bool PartFile::rename()
{
    if (m_check == FolderCheck::AtCommit) {
        if (::renameat2(AT_FDCWD, m_name.constData(), AT_FDCWD, m_path.constData(),
                        RENAME_NOREPLACE)
            == 0)
            return true;
        // Not every file system can do it.
        if (errno != EEXIST && errno != EINVAL && errno != ENOSYS)
            return failWith(errno);
        // A plain rename would refuse a folder, but replace a link to one.
        if (isFolder(m_path))
            return failAsFolder();
    }
    // The POSIX rename replaces the target atomically; QFile::rename refuses to.
    return std::rename(m_name.constData(), m_path.constData()) == 0 || failWith(errno);
}

void PartFile::discard()
{
    if (m_handle < 0)
        return;
    ::unlink(m_name.constData());
    close();
}

void PartFile::close()
{
    m_following.reset(); // it reads through the handle
    ::close(m_handle);
    m_handle = -1;
}

bool PartFile::failAsFolder()
{
    return fail(eFailure_LocalFile, QStringLiteral("is a folder, not a file name"));
}

bool PartFile::failWith(int error)
{
    return fail(causeOf(error), QString::fromLocal8Bit(std::strerror(error)));
}

bool PartFile::fail(EFailureCause cause, const QString& reason)
{
    m_eCause = cause;
    m_error = QStringLiteral("%1: %2").arg(m_target, reason);
    discard();
    return false;
}

bool PartFile::removeLeftovers(const QString& folder)
{
    bool hasFolders = false;
    // No pattern: favourites are also saved after main(), when Qt can no longer match one.
    QDirIterator entries(folder, QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
    while (entries.hasNext()) {
        entries.next();
        const QFileInfo entry = entries.fileInfo();
        if (entry.isSymLink() || entry.isDir()) {
            hasFolders = true;
            continue;
        }
        if (!isPartName(entry.fileName()))
            continue;
        QFile leftover(folder + QLatin1Char('/') + entry.fileName());
        // Removed under the lock: QFile::remove() would first close, and so unlock, the file.
        if (leftover.open(QIODevice::ReadOnly) && lock(leftover.handle()) == Lock::Taken)
            QFile::remove(leftover.fileName());
    }
    return hasFolders;
}
