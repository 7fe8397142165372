// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "host/SystemFile.h"

#include "host/OwnerOnly.h"
#include "host/SystemHandle.h"

#include <QDir>
#include <QStorageInfo>

#include <cerrno>
#include <cstdint>
#include <vector>

#include <fcntl.h>
#include <io.h>
#include <windows.h>

// In ntdll, which every process has; the headers of the cross compiler lack it.
extern "C" LONG NTAPI RtlGetLastNtStatus();

namespace {

/// ERROR_DISK_QUOTA_EXCEEDED, which the cross compiler's headers lack.
constexpr DWORD quotaExceeded = 1295;
/// The status behind "access denied" while the last handle of a removed file is open.
constexpr LONG deletePending = static_cast<LONG>(0xC0000056);
/// Everybody may read, write, rename and remove a file that is open here.
constexpr DWORD shareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
/// Locks are mandatory here: the locked byte is one that no file has.
constexpr DWORD lockedByte = 0x7fffffff;

int errnoOf(DWORD error)
{
    switch (error) {
    case ERROR_FILE_NOT_FOUND:
    case ERROR_PATH_NOT_FOUND:
    case ERROR_INVALID_NAME:
    case ERROR_BAD_PATHNAME:
    case ERROR_INVALID_DRIVE:
        return ENOENT;
    case ERROR_FILE_EXISTS:
    case ERROR_ALREADY_EXISTS:
        return EEXIST;
    case ERROR_DISK_FULL:
    case ERROR_HANDLE_DISK_FULL:
    case quotaExceeded:
        return ENOSPC;
    case ERROR_ACCESS_DENIED:
    case ERROR_SHARING_VIOLATION:
    case ERROR_LOCK_VIOLATION:
        return EACCES;
    case ERROR_WRITE_PROTECT:
        return EROFS;
    case ERROR_FILENAME_EXCED_RANGE:
        return ENAMETOOLONG;
    case ERROR_TOO_MANY_OPEN_FILES:
        return EMFILE;
    case ERROR_NOT_ENOUGH_MEMORY:
    case ERROR_OUTOFMEMORY:
        return ENOMEM;
    case ERROR_NOT_SAME_DEVICE:
        return EXDEV;
    default:
        return EIO;
    }
}

bool fail()
{
    errno = errnoOf(::GetLastError());
    return false;
}

bool succeed(BOOL result)
{
    return result != 0 || fail();
}

/// Returns an absolute path in the form that has no limit of 260 characters, and that takes names
/// of devices, blanks and dots at the end of a name as they are.
std::wstring systemName(const QByteArray& name)
{
    const QString path = QDir::toNativeSeparators(
        QDir::cleanPath(QDir::current().absoluteFilePath(QString::fromUtf8(name))));
    if (path.startsWith(QLatin1String("\\\\")))
        return (QStringLiteral("\\\\?\\UNC") + path.mid(1)).toStdWString();
    return (QStringLiteral("\\\\?\\") + path).toStdWString();
}

HANDLE handleOf(int handle)
{
    return reinterpret_cast<HANDLE>(::_get_osfhandle(handle));
}

/// Who asks for DELETE could not be read meanwhile by QFile, which does not share that; renaming
/// and removing go by name.
HANDLE openAs(const QByteArray& name, DWORD access, DWORD disposition, DWORD flags,
              SECURITY_ATTRIBUTES* security = nullptr)
{
    return ::CreateFileW(systemName(name).c_str(), access, shareAll, security, disposition, flags,
                         nullptr);
}

/// Hands a handle of the system over to the C library.
int handedOver(SystemHandle& handle, int flags = 0)
{
    if (!handle.isValid()) {
        fail();
        return -1;
    }
    const int number = ::_open_osfhandle(reinterpret_cast<std::intptr_t>(handle.get()),
                                         _O_BINARY | _O_NOINHERIT | flags);
    if (number >= 0)
        handle.release();
    return number;
}

/// Wine does not know the volume of a file that has been renamed while it is open.
bool isOne(HANDLE first, HANDLE second)
{
    BY_HANDLE_FILE_INFORMATION one = {};
    BY_HANDLE_FILE_INFORMATION other = {};
    return ::GetFileInformationByHandle(first, &one) != 0
        && ::GetFileInformationByHandle(second, &other) != 0
        && (one.dwVolumeSerialNumber == other.dwVolumeSerialNumber || one.dwVolumeSerialNumber == 0
            || other.dwVolumeSerialNumber == 0)
        && one.nFileIndexHigh == other.nFileIndexHigh && one.nFileIndexLow == other.nFileIndexLow;
}

OVERLAPPED at(qint64 position)
{
    constexpr int bitsOfHalf = 32;
    OVERLAPPED place = {};
    place.Offset = static_cast<DWORD>(position);
    place.OffsetHigh = static_cast<DWORD>(position >> bitsOfHalf);
    return place;
}

/// One call transfers no more than this.
DWORD pieceOf(qint64 length)
{
    constexpr qint64 maxPiece = 1 << 30;
    return static_cast<DWORD>(qMin(length, maxPiece));
}

bool moveAs(const QByteArray& from, const QByteArray& to, DWORD flags)
{
    return succeed(::MoveFileExW(systemName(from).c_str(), systemName(to).c_str(), flags));
}

/// Returns whether the last failure may be due to one of the files' being open elsewhere. Keeps
/// errno.
bool mayBeHeld(const QByteArray& from, const QByteArray& to)
{
    constexpr DWORD irreplaceable = FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_READONLY;
    if (errno != EACCES)
        return false;
    const DWORD renamed = ::GetFileAttributesW(systemName(from).c_str());
    const DWORD replaced = ::GetFileAttributesW(systemName(to).c_str());
    return renamed != INVALID_FILE_ATTRIBUTES && (renamed & FILE_ATTRIBUTE_DIRECTORY) == 0
        && (replaced == INVALID_FILE_ATTRIBUTES || (replaced & irreplaceable) == 0);
}

/// A file that another program reads, if only to look for viruses, can neither get another name nor
/// be replaced before that has ended, which usually takes milliseconds. A cancel must not wait
/// longer.
bool moveWhenFree(const QByteArray& from, const QByteArray& to, DWORD flags)
{
    constexpr int attempts = 16;
    constexpr DWORD pauseMs = 10;
    for (int attempt = 1; !moveAs(from, to, flags); ++attempt) {
        if (attempt == attempts || !mayBeHeld(from, to))
            return false;
        ::Sleep(pauseMs);
    }
    return true;
}

} // namespace

QByteArray SystemFile::encodedName(const QString& name)
{
    return name.toUtf8();
}

QString SystemFile::decodedName(const QByteArray& name)
{
    return QString::fromUtf8(name);
}

int SystemFile::create(const QByteArray& name, Readers readers)
{
    constexpr DWORD access = GENERIC_READ | GENERIC_WRITE;
    if (readers != Readers::Owner) { // what the folder lets everyone read, everyone may read
        SystemHandle handle(openAs(name, access, CREATE_NEW, FILE_ATTRIBUTE_NORMAL));
        return handedOver(handle);
    }
    OwnerOnly owner;
    if (!owner.isValid()) {
        fail();
        return -1;
    }
    SystemHandle handle(
        openAs(name, access, CREATE_NEW, FILE_ATTRIBUTE_NORMAL, owner.attributes()));
    return handedOver(handle);
}

int SystemFile::openOrCreate(const QByteArray& name)
{
    SystemHandle handle(openAs(name, GENERIC_READ | GENERIC_WRITE, OPEN_ALWAYS,
                               FILE_ATTRIBUTE_NORMAL | FILE_FLAG_OPEN_REPARSE_POINT));
    if (!handle.isValid()
        && (RtlGetLastNtStatus() == deletePending || ::GetLastError() == ERROR_SHARING_VIOLATION)) {
        errno = EBUSY;
        return -1;
    }
    FILE_ATTRIBUTE_TAG_INFO attributes = {};
    if (handle.isValid()
        && ::GetFileInformationByHandleEx(handle.get(), FileAttributeTagInfo, &attributes,
                                          sizeof attributes)
            != 0
        && (attributes.FileAttributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0) {
        errno = ELOOP;
        return -1;
    }
    return handedOver(handle);
}

int SystemFile::openRegular(const QByteArray& name, Access access)
{
    const bool isRead = access == Access::Read;
    SystemHandle handle(openAs(name, isRead ? GENERIC_READ : GENERIC_READ | GENERIC_WRITE,
                               isRead ? OPEN_EXISTING : OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL));
    if (handle.isValid() && ::GetFileType(handle.get()) != FILE_TYPE_DISK) {
        errno = 0;
        return -1;
    }
    if (!handle.isValid() && isFolder(name)) {
        errno = 0;
        return -1;
    }
    return handedOver(handle,
                      (isRead ? _O_RDONLY : 0) | (access == Access::Append ? _O_APPEND : 0));
}

void SystemFile::close(int handle)
{
    ::_close(handle);
}

bool SystemFile::writeAt(int handle, const char* data, qint64 length, qint64 position)
{
    while (length > 0) {
        OVERLAPPED place = at(position);
        DWORD written = 0;
        if (::WriteFile(handleOf(handle), data, pieceOf(length), &written, &place) == 0)
            return fail();
        data += written;
        length -= written;
        position += written;
    }
    return true;
}

qint64 SystemFile::readAt(int handle, char* data, qint64 length, qint64 position)
{
    OVERLAPPED place = at(position);
    DWORD count = 0;
    if (::ReadFile(handleOf(handle), data, pieceOf(length), &count, &place) != 0)
        return count;
    if (::GetLastError() == ERROR_HANDLE_EOF)
        return 0;
    fail();
    return -1;
}

qint64 SystemFile::readNext(int handle, char* data, qint64 length)
{
    return ::_read(handle, data, pieceOf(length));
}

bool SystemFile::truncate(int handle)
{
    FILE_END_OF_FILE_INFO end = {};
    return succeed(
        ::SetFileInformationByHandle(handleOf(handle), FileEndOfFileInfo, &end, sizeof end));
}

SystemFile::Lock SystemFile::lock(int handle)
{
    OVERLAPPED place = at(0);
    place.OffsetHigh = lockedByte;
    if (::LockFileEx(handleOf(handle), LOCKFILE_EXCLUSIVE_LOCK | LOCKFILE_FAIL_IMMEDIATELY, 0, 1, 0,
                     &place)
        != 0)
        return Lock::Taken;
    const DWORD reason = ::GetLastError();
    return reason == ERROR_LOCK_VIOLATION || reason == ERROR_IO_PENDING ? Lock::Held
                                                                        : Lock::Impossible;
}

bool SystemFile::hasName(int handle, const QByteArray& name)
{
    const SystemHandle named(openAs(name, 0, OPEN_EXISTING, FILE_FLAG_OPEN_REPARSE_POINT));
    return named.isValid() && isOne(handleOf(handle), named.get());
}

bool SystemFile::hasAnyName(int handle)
{
    FILE_STANDARD_INFO information = {};
    return ::GetFileInformationByHandleEx(handleOf(handle), FileStandardInfo, &information,
                                          sizeof information)
        != 0
        && information.DeletePending == 0 && information.NumberOfLinks > 0;
}

bool SystemFile::isSame(const QByteArray& first, const QByteArray& second)
{
    // Folders can be opened with these semantics only.
    const SystemHandle one(openAs(first, 0, OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS));
    const SystemHandle other(openAs(second, 0, OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS));
    return one.isValid() && other.isValid() && isOne(one.get(), other.get());
}

bool SystemFile::isFolder(const QByteArray& name)
{
    const DWORD attributes = ::GetFileAttributesW(systemName(name).c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

bool SystemFile::isLink(const QString& name)
{
    const std::wstring path = systemName(encodedName(name));
    const DWORD attributes = ::GetFileAttributesW(path.c_str());
    if (attributes == INVALID_FILE_ATTRIBUTES || (attributes & FILE_ATTRIBUTE_REPARSE_POINT) == 0)
        return false;
    WIN32_FIND_DATAW found = {};
    const HANDLE search = ::FindFirstFileW(path.c_str(), &found);
    if (search == INVALID_HANDLE_VALUE)
        return true; // in doubt
    ::FindClose(search);
    // Files in a cloud or compressed by the system have such a point, too. Wine tells no tag.
    return found.dwReserved0 == 0 || IsReparseTagNameSurrogate(found.dwReserved0);
}

QPair<quint64, quint64> SystemFile::identity(const QByteArray& name)
{
    constexpr int bitsOfHalf = 32;
    const SystemHandle file(openAs(name, 0, OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS));
    BY_HANDLE_FILE_INFORMATION known = {};
    if (!file.isValid() || ::GetFileInformationByHandle(file.get(), &known) == 0)
        return {0, 0};
    // Volumes may have the number 0.
    return {quint64(known.dwVolumeSerialNumber) + 1,
            (quint64(known.nFileIndexHigh) << bitsOfHalf) | known.nFileIndexLow};
}

QString SystemFile::realPath(const QString& name)
{
    const SystemHandle file(
        openAs(encodedName(name), 0, OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS));
    if (!file.isValid())
        return QString();
    const DWORD length = ::GetFinalPathNameByHandleW(file.get(), nullptr, 0, 0);
    std::vector<wchar_t> path(length + 1);
    const DWORD written = ::GetFinalPathNameByHandleW(file.get(), path.data(), length, 0);
    if (written == 0 || written > length)
        return QString();
    QString real =
        QDir::fromNativeSeparators(QString::fromWCharArray(path.data(), static_cast<int>(written)));
    if (real.startsWith(QLatin1String("//?/UNC/")))
        return QLatin1Char('/') + real.mid(static_cast<int>(qstrlen("//?/UNC")));
    return real.startsWith(QLatin1String("//?/")) ? real.mid(4) : real;
}

bool SystemFile::createFolder(const QByteArray& name, const QByteArray&)
{
    // Its permissions are inherited from the folder around it, as those of its model were.
    return succeed(::CreateDirectoryW(systemName(name).c_str(), nullptr));
}

bool SystemFile::flush(int handle)
{
    return succeed(::FlushFileBuffers(handleOf(handle)));
}

bool SystemFile::hasTakenAllBytes(int handle)
{
    HANDLE second = nullptr;
    if (handleOf(handle) == INVALID_HANDLE_VALUE) { // also the pseudo handle of this process
        errno = EBADF;
        return false;
    }
    return succeed(::DuplicateHandle(::GetCurrentProcess(), handleOf(handle), ::GetCurrentProcess(),
                                     &second, 0, FALSE, DUPLICATE_SAME_ACCESS))
        && succeed(::CloseHandle(second));
}

/// Names are in the file system's journal.
bool SystemFile::flushFolder(const QByteArray& folder)
{
    if (isFolder(folder))
        return true;
    errno = ENOENT;
    return false;
}

/// Only an administrator may flush a whole volume.
bool SystemFile::flushTree(const QByteArray& folder)
{
    return flushFolder(folder);
}

bool SystemFile::rename(const QByteArray& from, const QByteArray& to)
{
    return moveWhenFree(from, to, MOVEFILE_REPLACE_EXISTING);
}

bool SystemFile::renameToNew(const QByteArray& from, const QByteArray& to)
{
    return moveWhenFree(from, to, 0);
}

bool SystemFile::exchange(const QByteArray&, const QByteArray&)
{
    errno = ENOSYS;
    return false;
}

bool SystemFile::link(const QByteArray& existing, const QByteArray& added)
{
    return succeed(
        ::CreateHardLinkW(systemName(added).c_str(), systemName(existing).c_str(), nullptr));
}

bool SystemFile::remove(const QByteArray& name)
{
    return succeed(::DeleteFileW(systemName(name).c_str()));
}

int SystemFile::obstacleIn(const QByteArray& folder)
{
    if (!isFolder(folder))
        return ENOENT;
    const QStorageInfo volume(decodedName(folder));
    if (volume.isReadOnly())
        return EROFS;
    return volume.isValid() && volume.bytesAvailable() == 0 ? ENOSPC : 0;
}
