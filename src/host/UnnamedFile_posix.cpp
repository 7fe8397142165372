// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "host/UnnamedFile.h"

#include <QVersionNumber>

#include <array>
#include <atomic>
#include <cerrno>
#include <cstdio>

#include <fcntl.h>
#include <sys/utsname.h>
#include <unistd.h>

namespace {

constexpr mode_t unnamedFileMode = 0666; // as of SystemFile; the umask takes away the rest

/// Ways to name a file that is known by its handle.
enum class Way {
    Unknown,
    ByHandle, ///< needs Linux 6.10, or the rights of the administrator
    ByProc,   ///< needs /proc
};

std::atomic<Way> namingWay{Way::Unknown}; // once found, it is kept
std::atomic<bool> isUseless{false};

bool nameBy(Way way, int handle, const QByteArray& name)
{
    if (way == Way::ByHandle)
        return ::linkat(handle, "", AT_FDCWD, name.constData(), AT_EMPTY_PATH) == 0;
    std::array<char, 32> link = {};
    std::snprintf(link.data(), link.size(), "/proc/self/fd/%d", handle);
    return ::linkat(AT_FDCWD, link.data(), AT_FDCWD, name.constData(), AT_SYMLINK_FOLLOW) == 0;
}

int createIn(const QByteArray& folder)
{
    const char* const name = folder.isEmpty() ? "." : folder.constData();
    return ::open(name, O_TMPFILE | O_RDWR | O_CLOEXEC, unnamedFileMode);
}

/// Before Linux 6.1, files without a name ignored the umask on some file systems.
bool respectsUmask()
{
    utsname system = {};
    return ::uname(&system) == 0
        && QVersionNumber::fromString(QString::fromLatin1(system.release)) >= QVersionNumber(6, 1);
}

bool isUnsupported(int error)
{
    return error == EOPNOTSUPP || error == EISDIR || error == EINVAL;
}

/// A full disk says nothing about the next file.
bool isFull(int error)
{
    return error == ENOSPC || error == EDQUOT;
}

/// Finds out how files in the folder get a name: a system may refuse that only when everything has
/// been written. Returns false if no file without a name can be created there now.
bool findNamingWay(const QByteArray& folder, UnnamedFile::NameMaker trialName)
{
    const int handle = respectsUmask() ? createIn(folder) : -1;
    if (handle < 0) {
        if (!respectsUmask() || isUnsupported(errno))
            isUseless = true;
        return false;
    }
    const QByteArray name = trialName(folder);
    Way found = Way::Unknown;
    int error = 0;
    for (const Way way : {Way::ByHandle, Way::ByProc}) {
        if (found == Way::Unknown && nameBy(way, handle, name))
            found = way;
        error = errno;
    }
    ::close(handle);
    if (found != Way::Unknown) {
        ::unlink(name.constData());
        namingWay = found;
        return true;
    }
    if (!isFull(error))
        isUseless = true;
    return false;
}

} // namespace

int UnnamedFile::create(const QByteArray& folder, NameMaker trialName)
{
    if (isUseless || (namingWay == Way::Unknown && !findNamingWay(folder, trialName)))
        return -1;
    const int handle = createIn(folder);
    if (handle < 0 && isUnsupported(errno))
        isUseless = true;
    return handle;
}

bool UnnamedFile::setName(int handle, const QByteArray& name)
{
    if (nameBy(namingWay, handle, name))
        return true;
    const int error = errno;
    if (error != EEXIST && error != ENOENT && !isFull(error))
        isUseless =
            true; // this file system differs from that of the trial: the next attempt uses names
    errno = error;
    return false;
}
