// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "host/PartFile.h"

#include "host/ContentDigest.h"
#include "host/FollowingDigest.h"
#include "host/SystemFile.h"
#include "host/UnnamedFile.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QRandomGenerator>

#include <algorithm>
#include <cerrno>
#include <cstring>

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
    char number[digits + 1] = {};
    quint64 rest = QRandomGenerator::global()->generate64();
    for (int i = 0; i < digits; ++i, rest >>= bitsOfDigit)
        number[i] = "0123456789abcdef"[rest & 0xf];
    QByteArray path;
    path.reserve(beside.size() + partPrefix.size() + digits + partSuffix.size());
    return path.append(beside).append(partPrefix.data()).append(number).append(partSuffix.data());
}

bool isPartName(const QString& name)
{
    return name.startsWith(partPrefix) && name.endsWith(partSuffix);
}

EFailureCause causeOf(int error)
{
    if (SystemFile::isFull(error))
        return eFailure_DiskFull;
    return error == EACCES || error == EPERM || error == EROFS ? eFailure_NoPermission
                                                               : eFailure_LocalFile;
}

/// Returns the errno that explains why a folder could not be created, ENOENT by default.
int obstacleTo(const QString& folder)
{
    QFileInfo ancestor(folder);
    while (!ancestor.exists() && !ancestor.isRoot())
        ancestor.setFile(ancestor.path());
    const int obstacle = SystemFile::obstacleIn(SystemFile::encodedName(ancestor.filePath()));
    return obstacle != 0 ? obstacle : ENOENT;
}

/// Removes a file under its lock: QFile::remove() would first close, and so unlock, it.
void removeUnlocked(const QString& file)
{
    const QByteArray name = SystemFile::encodedName(file);
    const int handle = SystemFile::openRegular(name, SystemFile::Access::Read);
    if (handle < 0)
        return;
    if (SystemFile::lock(handle) == SystemFile::Lock::Taken)
        SystemFile::remove(name);
    SystemFile::close(handle);
}

} // namespace

PartFile::PartFile() = default;

PartFile::~PartFile()
{
    discard();
}

bool PartFile::open(const QString& target, FolderCheck check, Temporary temporary)
{
    discard();
    m_target = target;
    m_path = SystemFile::encodedName(target);
    m_check = check;
    m_size = 0;
    m_beginning.clear();
    m_eCause = eFailure_None;
    m_error.clear();
    m_digest.reset();
    if (m_path.isEmpty() || m_path.endsWith('/')
        || (check == FolderCheck::AtOnce && SystemFile::isFolder(m_path)))
        return failAsFolder();
    m_name.clear();
    if (temporary == Temporary::Unnamed)
        m_handle = UnnamedFile::create(folder(), &partPath);
    return m_handle >= 0 || createLocked();
}

/// Returns the target's folder with a slash at its end; empty for the current one.
QByteArray PartFile::folder() const
{
    return m_path.left(m_path.lastIndexOf('/') + 1);
}

bool PartFile::createLocked()
{
    const QByteArray beside = folder();
    for (int attempt = 0; attempt < createAttempts; ++attempt) {
        m_name = partPath(beside);
        m_handle = SystemFile::create(m_name);
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
        if (SystemFile::lock(m_handle) != SystemFile::Lock::Held
            && SystemFile::hasAnyName(m_handle))
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
    if (!SystemFile::writeAt(m_handle, data, length, m_size))
        return failWith(errno);
    keepBeginning(data, length);
    m_size += length;
    addToDigest(data, length);
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
    if (!SystemFile::truncate(m_handle))
        return failWith(errno);
    m_size = 0;
    if (m_digest || m_following)
        startDigest();
    m_beginning.clear();
    return true;
}

bool PartFile::openContent(QFile& content) const
{
    return content.open(m_handle, QIODevice::ReadOnly, QFileDevice::DontCloseHandle)
        && content.seek(0);
}

bool PartFile::commit(Flush flush)
{
    const bool isStored =
        flush == Flush::Yes ? SystemFile::flush(m_handle) : SystemFile::hasTakenAllBytes(m_handle);
    if (!isStored)
        return failWith(errno);
    if (!nameTarget())
        return false;
    close();
    // The new name already exists, so a failure is ignored: some file systems cannot do it.
    if (flush == Flush::Yes)
        SystemFile::flushFolder(SystemFile::encodedName(QFileInfo(m_target).path()));
    return true;
}

bool PartFile::nameTarget()
{
    if (!m_name.isEmpty())
        return rename();
    if (UnnamedFile::setName(m_handle, m_path))
        return true;
    // Only a file with a name can replace another one.
    return errno == EEXIST ? nameBeside() && replaceTarget() : failWith(errno);
}

bool PartFile::nameBeside()
{
    // Before a sweep can see it.
    SystemFile::lock(m_handle);
    const QByteArray beside = folder();
    for (int attempt = 0; attempt < createAttempts; ++attempt) {
        const QByteArray name = partPath(beside);
        if (UnnamedFile::setName(m_handle, name)) {
            m_name = name;
            return true;
        }
        if (errno != EEXIST)
            break;
    }
    return failWith(errno);
}

bool PartFile::rename()
{
    if (m_check == FolderCheck::AtCommit) {
        if (SystemFile::renameToNew(m_name, m_path))
            return true;
        // Not every file system can do it.
        if (errno != EEXIST && errno != EINVAL && errno != ENOSYS)
            return failWith(errno);
    }
    return replaceTarget();
}

bool PartFile::replaceTarget()
{
    // A plain rename would refuse a folder, but replace a link to one.
    if (m_check == FolderCheck::AtCommit && SystemFile::isFolder(m_path))
        return failAsFolder();
    return SystemFile::rename(m_name, m_path) || failWith(errno);
}

void PartFile::discard()
{
    if (m_handle < 0)
        return;
    if (!m_name.isEmpty())
        SystemFile::remove(m_name);
    close();
}

void PartFile::close()
{
    m_following.reset(); // it reads through the handle
    SystemFile::close(m_handle);
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
        removeUnlocked(folder + QLatin1Char('/') + entry.fileName());
    }
    return hasFolders;
}
