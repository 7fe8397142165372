// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

// Interposes renaming, linking, removing, folders, modes and dates. Calls that would fail on any
// disk, because a name is missing or taken, are not counted.

#include "FaultPlan.h"
#include "WatchedFiles.h"

#include <cstdio>
#include <cstring>

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace {

bool fails(Operation operation, const PlainPath& path)
{
    return path.isWatched() && FaultPlan::next(operation, path.text()) == FaultPlan::Verdict::Fail;
}

bool fails(Operation operation, int file)
{
    return WatchedFiles::isWatched(file)
        && FaultPlan::next(operation, FaultPlan::Place(file)) == FaultPlan::Verdict::Fail;
}

int renamed(int fromFolder, const char* from, int toFolder, const char* to, unsigned int flags)
{
    if ((flags & RENAME_EXCHANGE) != 0 && !FaultPlan::hasExchange()) {
        errno = EINVAL;
        return -1;
    }
    const PlainPath source(fromFolder, from);
    const PlainPath target(toFolder, to);
    if (source.exists() && fails(Operation::Rename, target.isWatched() ? target : source))
        return -1;
    return static_cast<int>(::syscall(SYS_renameat2, fromFolder, from, toFolder, to, flags));
}

int removed(int folder, const char* name, int flags)
{
    const Operation operation =
        (flags & AT_REMOVEDIR) != 0 ? Operation::RemoveFolder : Operation::Remove;
    const PlainPath path(folder, name);
    if (path.exists() && fails(operation, path))
        return -1;
    return static_cast<int>(::syscall(SYS_unlinkat, folder, name, flags));
}

int folderMade(int folder, const char* name, mode_t mode)
{
    const PlainPath path(folder, name);
    if (!path.exists() && fails(Operation::MakeFolder, path))
        return -1;
    return static_cast<int>(::syscall(SYS_mkdirat, folder, name, mode));
}

/// Returns why an open file cannot be linked by its number; 0 if it can.
int obstacleToNaming(const char* from, int flags)
{
    if ((flags & AT_EMPTY_PATH) != 0 && !FaultPlan::hasEmptyPath())
        return ENOENT; // as for users without rights, before Linux 6.10
    const bool isOfProc = std::strncmp(from, "/proc/", std::strlen("/proc/")) == 0;
    return isOfProc && !FaultPlan::hasProcPath() ? ENOENT : 0;
}

int linked(int fromFolder, const char* from, int toFolder, const char* to, int flags)
{
    if (const int obstacle = obstacleToNaming(from, flags)) {
        errno = obstacle;
        return -1;
    }
    const PlainPath path(toFolder, to);
    if (!path.exists() && fails(Operation::Link, path))
        return -1;
    return static_cast<int>(::syscall(SYS_linkat, fromFolder, from, toFolder, to, flags));
}

int linkMade(const char* target, int folder, const char* name)
{
    const PlainPath path(folder, name);
    if (!path.exists() && fails(Operation::Link, path))
        return -1;
    return static_cast<int>(::syscall(SYS_symlinkat, target, folder, name));
}

int modeSet(int folder, const char* name, mode_t mode, int flags)
{
    if (fails(Operation::SetAttributes, PlainPath(folder, name)))
        return -1;
    if (flags != 0) {
        errno = ENOTSUP;
        return -1;
    }
    return static_cast<int>(::syscall(SYS_fchmodat, folder, name, mode));
}

} // namespace

#pragma GCC visibility push(default)
extern "C" {

int rename(const char* from, const char* to) noexcept
{
    return renamed(AT_FDCWD, from, AT_FDCWD, to, 0);
}

int renameat(int fromFolder, const char* from, int toFolder, const char* to) noexcept
{
    return renamed(fromFolder, from, toFolder, to, 0);
}

int renameat2(int fromFolder, const char* from, int toFolder, const char* to,
              unsigned int flags) noexcept
{
    return renamed(fromFolder, from, toFolder, to, flags);
}

int unlink(const char* name) noexcept
{
    return removed(AT_FDCWD, name, 0);
}

int unlinkat(int folder, const char* name, int flags) noexcept
{
    return removed(folder, name, flags);
}

int rmdir(const char* name) noexcept
{
    return removed(AT_FDCWD, name, AT_REMOVEDIR);
}

int remove(const char* name) noexcept
{
    const int result = removed(AT_FDCWD, name, 0);
    return result != 0 && errno == EISDIR ? removed(AT_FDCWD, name, AT_REMOVEDIR) : result;
}

int mkdir(const char* name, mode_t mode) noexcept
{
    return folderMade(AT_FDCWD, name, mode);
}

int mkdirat(int folder, const char* name, mode_t mode) noexcept
{
    return folderMade(folder, name, mode);
}

int link(const char* from, const char* to) noexcept
{
    return linked(AT_FDCWD, from, AT_FDCWD, to, 0);
}

int linkat(int fromFolder, const char* from, int toFolder, const char* to, int flags) noexcept
{
    return linked(fromFolder, from, toFolder, to, flags);
}

int symlink(const char* target, const char* name) noexcept
{
    return linkMade(target, AT_FDCWD, name);
}

int symlinkat(const char* target, int folder, const char* name) noexcept
{
    return linkMade(target, folder, name);
}

int chmod(const char* name, mode_t mode) noexcept
{
    return modeSet(AT_FDCWD, name, mode, 0);
}

int fchmodat(int folder, const char* name, mode_t mode, int flags) noexcept
{
    return modeSet(folder, name, mode, flags);
}

int fchmod(int file, mode_t mode) noexcept
{
    return fails(Operation::SetAttributes, file)
        ? -1
        : static_cast<int>(::syscall(SYS_fchmod, file, mode));
}

int utimensat(int folder, const char* name, const timespec times[2], int flags) noexcept
{
    if (fails(Operation::SetAttributes, PlainPath(folder, name)))
        return -1;
    return static_cast<int>(::syscall(SYS_utimensat, folder, name, times, flags));
}

int futimens(int file, const timespec times[2]) noexcept
{
    return fails(Operation::SetAttributes, file)
        ? -1
        : static_cast<int>(::syscall(SYS_utimensat, file, nullptr, times, 0));
}

} // extern "C"
#pragma GCC visibility pop
