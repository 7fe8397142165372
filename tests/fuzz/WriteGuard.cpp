// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "WriteGuard.h"

#include "Require.h"

#include <QFile>

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <cstdarg>
#include <cstdlib>
#include <memory>
#include <string>
#include <vector>

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace {

std::vector<std::string> allowed; // real paths with a trailing slash; written while unguarded
std::atomic<bool> isWatching{false};

/// Resolves a path; returns an empty text if it does not exist.
std::string realPath(const std::string& path)
{
    const std::unique_ptr<char, decltype(&std::free)> real(::realpath(path.c_str(), nullptr),
                                                           &std::free);
    return real ? std::string(real.get()) : std::string();
}

/// Resolves an entry, which may not exist, without following it; empty if it cannot exist.
std::string entryPath(std::string path)
{
    while (path.size() > 1 && path.back() == '/')
        path.pop_back();
    const std::size_t slash = path.rfind('/');
    const bool isRelative = slash == std::string::npos;
    const std::string folder = realPath(isRelative ? "." : path.substr(0, slash + 1));
    return folder.empty() ? folder : folder + '/' + path.substr(isRelative ? 0 : slash + 1);
}

void requireAllowed(const std::string& place, const char* path)
{
    const bool isBelow =
        std::any_of(allowed.cbegin(), allowed.cend(), [&place](const std::string& folder) {
            return place.compare(0, folder.size(), folder) == 0;
        });
    require(place.empty() || isBelow, "nothing is written outside the folders for it",
            QFile::decodeName(path));
}

/// Checks an entry that the call would create, replace or remove.
void checkEntry(const char* path)
{
    if (!isWatching)
        return;
    const int error = errno;
    requireAllowed(entryPath(path), path);
    errno = error;
}

/// Checks a file that the call would open for writing or change, following links.
void checkTarget(const char* path)
{
    if (!isWatching)
        return;
    const int error = errno;
    const std::string real = realPath(path);
    requireAllowed(real.empty() ? entryPath(path) : real, path);
    errno = error;
}

bool isFolder(const char* path)
{
    struct stat status = {};
    return ::stat(path, &status) == 0 && S_ISDIR(status.st_mode);
}

int openFile(const char* path, int flags, mode_t mode)
{
    const bool isWritten = (flags & (O_CREAT | O_TRUNC)) != 0 || (flags & O_ACCMODE) != O_RDONLY;
    if ((flags & O_TMPFILE) == O_TMPFILE)
        checkTarget((std::string(path) + "/file").c_str()); // an unnamed file in that folder
    else if (isWritten && !isFolder(path))                  // a folder cannot be opened for writing
        checkTarget(path);
    return static_cast<int>(::syscall(SYS_openat, AT_FDCWD, path, flags, mode));
}

} // namespace

WriteGuard::WriteGuard(const QStringList& folders)
{
    allowed.clear();
    for (const QString& folder : folders)
        allowed.push_back(realPath(QFile::encodeName(folder).toStdString()) + '/');
    isWatching = true;
}

WriteGuard::~WriteGuard()
{
    isWatching = false;
}

#define MV_INTERPOSED extern "C" [[gnu::visibility("default")]] int

MV_INTERPOSED open(const char* path, int flags, ...)
{
    va_list arguments;
    va_start(arguments, flags);
    const mode_t mode = (flags & (O_CREAT | O_TMPFILE)) != 0 ? va_arg(arguments, mode_t) : 0;
    va_end(arguments);
    return openFile(path, flags, mode);
}

MV_INTERPOSED open64(const char* path, int flags, ...)
{
    va_list arguments;
    va_start(arguments, flags);
    const mode_t mode = (flags & (O_CREAT | O_TMPFILE)) != 0 ? va_arg(arguments, mode_t) : 0;
    va_end(arguments);
    return openFile(path, flags, mode);
}

MV_INTERPOSED mkdir(const char* path, mode_t mode) noexcept
{
    if (isWatching && realPath(path).empty()) // otherwise there is nothing to create
        checkEntry(path);
    return static_cast<int>(::syscall(SYS_mkdirat, AT_FDCWD, path, mode));
}

MV_INTERPOSED unlink(const char* path) noexcept
{
    checkEntry(path);
    return static_cast<int>(::syscall(SYS_unlinkat, AT_FDCWD, path, 0));
}

MV_INTERPOSED rmdir(const char* path) noexcept
{
    checkEntry(path);
    return static_cast<int>(::syscall(SYS_unlinkat, AT_FDCWD, path, AT_REMOVEDIR));
}

MV_INTERPOSED rename(const char* from, const char* to) noexcept
{
    checkEntry(from);
    checkEntry(to);
    return static_cast<int>(::syscall(SYS_renameat2, AT_FDCWD, from, AT_FDCWD, to, 0));
}

MV_INTERPOSED renameat2(int fromFolder, const char* from, int toFolder, const char* to,
                        unsigned int flags) noexcept
{
    checkEntry(from); // Qt passes no folder, only AT_FDCWD
    checkEntry(to);
    return static_cast<int>(::syscall(SYS_renameat2, fromFolder, from, toFolder, to, flags));
}

MV_INTERPOSED link(const char* from, const char* to) noexcept
{
    checkEntry(to);
    return static_cast<int>(::syscall(SYS_linkat, AT_FDCWD, from, AT_FDCWD, to, 0));
}

MV_INTERPOSED linkat(int fromFolder, const char* from, int toFolder, const char* to,
                     int flags) noexcept
{
    checkEntry(to);
    return static_cast<int>(::syscall(SYS_linkat, fromFolder, from, toFolder, to, flags));
}

MV_INTERPOSED symlink(const char* content, const char* path) noexcept
{
    checkEntry(path);
    return static_cast<int>(::syscall(SYS_symlinkat, content, AT_FDCWD, path));
}

MV_INTERPOSED chmod(const char* path, mode_t mode) noexcept
{
    checkTarget(path);
    return static_cast<int>(::syscall(SYS_fchmodat, AT_FDCWD, path, mode));
}

MV_INTERPOSED truncate64(const char* path, off64_t length) noexcept
{
    checkTarget(path);
    return static_cast<int>(::syscall(SYS_truncate, path, length));
}
