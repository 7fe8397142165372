// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

// Interposes reading, writing and flushing open files.

#include "FaultPlan.h"
#include "WatchedFiles.h"

#include <cstddef>

#include <fcntl.h>
#include <sys/sendfile.h>
#include <sys/syscall.h>
#include <sys/uio.h>
#include <unistd.h>

namespace {

using FaultPlan::Verdict;

Verdict verdict(Operation operation, int file)
{
    return WatchedFiles::isWatched(file) ? FaultPlan::next(operation, FaultPlan::Place(file))
                                         : Verdict::Pass;
}

/// Runs `transfer` with as many bytes as the plan allows.
template <class Transfer>
ssize_t transferred(Operation operation, int file, std::size_t length, Transfer transfer)
{
    if (operation != Operation::Read)
        WatchedFiles::written(file);
    const Verdict what = verdict(operation, file);
    if (what == Verdict::Fail)
        return -1;
    const std::size_t part = what == Verdict::Pass || length < 2 ? length : length / 2;
    const ssize_t done = transfer(part);
    if (what == Verdict::Finish)
        FaultPlan::die();
    return done;
}

int flushed(int file, long number)
{
    if (verdict(Operation::Flush, file) == Verdict::Fail)
        return -1;
    WatchedFiles::flushed(file);
    const bool isLeftOut = !FaultPlan::hasFlush() && WatchedFiles::isWatched(file);
    return isLeftOut ? 0 : static_cast<int>(::syscall(number, file));
}

int resized(int file, off_t length)
{
    WatchedFiles::written(file);
    return verdict(Operation::Resize, file) == Verdict::Fail
        ? -1
        : static_cast<int>(::syscall(SYS_ftruncate, file, length));
}

int resized(const char* name, off_t length)
{
    const PlainPath path(AT_FDCWD, name);
    const bool fails =
        path.isWatched() && FaultPlan::next(Operation::Resize, path.text()) == Verdict::Fail;
    return fails ? -1 : static_cast<int>(::syscall(SYS_truncate, name, length));
}

} // namespace

#pragma GCC visibility push(default)
extern "C" {

ssize_t read(int file, void* to, std::size_t length)
{
    return transferred(Operation::Read, file, length,
                       [&](std::size_t part) { return ::syscall(SYS_read, file, to, part); });
}

ssize_t pread(int file, void* to, std::size_t length, off_t offset)
{
    return transferred(Operation::Read, file, length, [&](std::size_t part) {
        return ::syscall(SYS_pread64, file, to, part, offset);
    });
}

ssize_t pread64(int file, void* to, std::size_t length, off64_t offset)
{
    return ::pread(file, to, length, offset);
}

ssize_t write(int file, const void* from, std::size_t length)
{
    return transferred(Operation::Write, file, length,
                       [&](std::size_t part) { return ::syscall(SYS_write, file, from, part); });
}

ssize_t pwrite(int file, const void* from, std::size_t length, off_t offset)
{
    return transferred(Operation::Write, file, length, [&](std::size_t part) {
        return ::syscall(SYS_pwrite64, file, from, part, offset);
    });
}

ssize_t pwrite64(int file, const void* from, std::size_t length, off64_t offset)
{
    return ::pwrite(file, from, length, offset);
}

/// A halved call transfers the first pieces.
ssize_t writev(int file, const iovec* pieces, int count)
{
    return transferred(Operation::Write, file, static_cast<std::size_t>(count),
                       [&](std::size_t part) { return ::syscall(SYS_writev, file, pieces, part); });
}

ssize_t sendfile(int to, int from, off_t* offset, std::size_t length) noexcept
{
    return transferred(Operation::Copy, to, length, [&](std::size_t part) {
        return ::syscall(SYS_sendfile, to, from, offset, part);
    });
}

ssize_t sendfile64(int to, int from, off64_t* offset, std::size_t length) noexcept
{
    return ::sendfile(to, from, offset, length);
}

ssize_t copy_file_range(int from, off64_t* fromOffset, int to, off64_t* toOffset,
                        std::size_t length, unsigned int flags)
{
    return transferred(Operation::Copy, to, length, [&](std::size_t part) {
        return ::syscall(SYS_copy_file_range, from, fromOffset, to, toOffset, part, flags);
    });
}

int fsync(int file)
{
    return flushed(file, SYS_fsync);
}

int fdatasync(int file)
{
    return flushed(file, SYS_fdatasync);
}

int syncfs(int file) noexcept
{
    return flushed(file, SYS_syncfs);
}

int ftruncate(int file, off_t length) noexcept
{
    return resized(file, length);
}

int ftruncate64(int file, off64_t length) noexcept
{
    return resized(file, length);
}

int truncate(const char* name, off_t length) noexcept
{
    return resized(name, length);
}

int truncate64(const char* name, off64_t length) noexcept
{
    return resized(name, length);
}

} // extern "C"
#pragma GCC visibility pop
