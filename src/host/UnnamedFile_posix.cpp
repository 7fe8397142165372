// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "host/UnnamedFile.h"

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
    None,
};

std::atomic<Way> usableWay{Way::Unknown};

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
    int major = 0;
    int minor = 0;
    if (::uname(&system) != 0 || std::sscanf(system.release, "%d.%d", &major, &minor) != 2)
        return false;
    return major > 6 || (major == 6 && minor >= 1);
}

bool isUnsupported(int error)
{
    return error == EOPNOTSUPP || error == EISDIR || error == EINVAL;
}

/// A system may refuse the name only when everything has been written, so that is tried before.
Way tryWays(const QByteArray& folder, UnnamedFile::NameMaker trialName)
{
    if (!respectsUmask())
        return Way::None;
    const int handle = createIn(folder);
    if (handle < 0)
        return isUnsupported(errno) ? Way::None : Way::Unknown;
    const QByteArray name = trialName(folder);
    Way found = Way::None;
    for (const Way way : {Way::ByHandle, Way::ByProc}) {
        if (found == Way::None && nameBy(way, handle, name))
            found = way;
    }
    if (found != Way::None)
        ::unlink(name.constData());
    ::close(handle);
    return found;
}

} // namespace

int UnnamedFile::create(const QByteArray& folder, NameMaker trialName)
{
    if (usableWay == Way::Unknown)
        usableWay = tryWays(folder, trialName);
    const Way way = usableWay;
    if (way == Way::Unknown || way == Way::None)
        return -1;
    const int handle = createIn(folder);
    if (handle < 0 && isUnsupported(errno))
        usableWay = Way::None;
    return handle;
}

bool UnnamedFile::setName(int handle, const QByteArray& name)
{
    return nameBy(usableWay, handle, name);
}
