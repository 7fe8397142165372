// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

// Interposes the C library's functions that open and close files.

#include "FaultPlan.h"
#include "WatchedFiles.h"

#include <cstdarg>

#include <fcntl.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace {

/// Follows links, as creating a file does.
bool exists(int folder, const char* name)
{
    const int before = errno;
    const bool found = ::syscall(SYS_faccessat, folder, name, F_OK) == 0;
    errno = before;
    return found;
}

/// The name is that of its folder then.
bool isUnnamed(int flags)
{
    return (flags & O_TMPFILE) == O_TMPFILE;
}

Operation operationOf(int folder, const char* name, int flags)
{
    if (isUnnamed(flags))
        return Operation::CreateFile;
    if ((flags & O_DIRECTORY) != 0)
        return Operation::OpenFolder;
    return (flags & O_CREAT) != 0 && !exists(folder, name) ? Operation::CreateFile
                                                           : Operation::OpenFile;
}

int openAt(int folder, const char* name, int flags, mode_t mode)
{
    if (isUnnamed(flags) && !FaultPlan::hasUnnamed()) {
        errno = EOPNOTSUPP;
        return -1;
    }
    const PlainPath path(folder, name);
    const bool watched = isUnnamed(flags) ? path.isOnWatchedDisk() : path.isWatched();
    if (watched
        && FaultPlan::next(operationOf(folder, name, flags), path.text())
            == FaultPlan::Verdict::Fail)
        return -1;
    const int file = static_cast<int>(::syscall(SYS_openat, folder, name, flags, mode));
    if (file >= 0)
        WatchedFiles::opened(file, watched);
    return file;
}

int openWith(int folder, const char* name, int flags, va_list& arguments)
{
    const bool hasMode = (flags & O_CREAT) != 0 || isUnnamed(flags);
    return openAt(folder, name, flags, hasMode ? va_arg(arguments, mode_t) : 0);
}

int duplicated(int file, int duplicate)
{
    if (duplicate >= 0)
        WatchedFiles::duplicated(file, duplicate);
    return duplicate;
}

} // namespace

#pragma GCC visibility push(default)
extern "C" {

int open(const char* name, int flags, ...)
{
    va_list arguments;
    va_start(arguments, flags);
    const int file = openWith(AT_FDCWD, name, flags, arguments);
    va_end(arguments);
    return file;
}

int open64(const char* name, int flags, ...)
{
    va_list arguments;
    va_start(arguments, flags);
    const int file = openWith(AT_FDCWD, name, flags, arguments);
    va_end(arguments);
    return file;
}

int openat(int folder, const char* name, int flags, ...)
{
    va_list arguments;
    va_start(arguments, flags);
    const int file = openWith(folder, name, flags, arguments);
    va_end(arguments);
    return file;
}

int openat64(int folder, const char* name, int flags, ...)
{
    va_list arguments;
    va_start(arguments, flags);
    const int file = openWith(folder, name, flags, arguments);
    va_end(arguments);
    return file;
}

int creat(const char* name, mode_t mode)
{
    return openAt(AT_FDCWD, name, O_CREAT | O_WRONLY | O_TRUNC, mode);
}

int creat64(const char* name, mode_t mode)
{
    return openAt(AT_FDCWD, name, O_CREAT | O_WRONLY | O_TRUNC, mode);
}

int close(int file)
{
    const bool isCounted = WatchedFiles::isWatched(file) && WatchedFiles::isWritten(file);
    const bool fails = isCounted
        && FaultPlan::next(Operation::Close, FaultPlan::Place(file)) == FaultPlan::Verdict::Fail;
    const int reason = errno;
    if (fails)
        WatchedFiles::loseData(file);
    WatchedFiles::closed(file, !fails); // before another thread reuses the descriptor
    const int result = static_cast<int>(::syscall(SYS_close, file));
    if (!fails)
        return result;
    errno = reason;
    return -1;
}

int dup(int file) noexcept
{
    return duplicated(file, static_cast<int>(::syscall(SYS_dup, file)));
}

int dup3(int file, int duplicate, int flags) noexcept
{
    return duplicated(file, static_cast<int>(::syscall(SYS_dup3, file, duplicate, flags)));
}

int fcntl(int file, int command, ...)
{
    va_list arguments;
    va_start(arguments, command);
    const long argument = va_arg(arguments, long);
    va_end(arguments);
    const int result = static_cast<int>(::syscall(SYS_fcntl, file, command, argument));
    return command == F_DUPFD || command == F_DUPFD_CLOEXEC ? duplicated(file, result) : result;
}

int fcntl64(int file, int command, ...)
{
    va_list arguments;
    va_start(arguments, command);
    const long argument = va_arg(arguments, long);
    va_end(arguments);
    return fcntl(file, command, argument);
}

} // extern "C"
#pragma GCC visibility pop
