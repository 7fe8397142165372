// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

// Interposes what the C library does internally: streams, reading folders, temporary files, and the
// functions that tell why a call failed.

#include "FaultPlan.h"
#include "NextFunction.h"
#include "WatchedFiles.h"

#include <cstdio>
#include <cstdlib>

#include <dirent.h>
#include <fcntl.h>
#include <sys/statvfs.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace {

using FaultPlan::Verdict;

NextFunction<FILE*(const char*, const char*)> nextOpen("fopen");
NextFunction<std::size_t(void*, std::size_t, std::size_t, FILE*)> nextRead("fread");
NextFunction<std::size_t(const void*, std::size_t, std::size_t, FILE*)> nextWrite("fwrite");
NextFunction<int(FILE*)> nextClose("fclose");
NextFunction<int(char*, int, int)> nextTemporary("mkostemps");
NextFunction<DIR*(const char*)> nextOpenFolder("opendir");
NextFunction<int(DIR*)> nextCloseFolder("closedir");
NextFunction<int(const char*, struct statvfs*)> nextSpace("statvfs");

Verdict verdict(Operation operation, FILE* stream)
{
    const int file = ::fileno(stream);
    return WatchedFiles::isWatched(file) ? FaultPlan::next(operation, FaultPlan::Place(file))
                                         : Verdict::Pass;
}

/// Makes ferror() report the failure; no public function sets that flag.
std::size_t failed(FILE* stream)
{
    constexpr int errorSeen = 0x20;
    stream->_flags |= errorSeen;
    return 0;
}

FILE* opened(const char* name, const char* mode)
{
    const PlainPath path(AT_FDCWD, name);
    const bool creates = *mode != 'r' && !path.exists();
    if (path.isWatched()
        && FaultPlan::next(creates ? Operation::CreateFile : Operation::OpenFile, path.text())
            == Verdict::Fail)
        return nullptr;
    FILE* const stream = nextOpen(name, mode);
    if (stream)
        WatchedFiles::opened(::fileno(stream), path.isWatched());
    return stream;
}

int temporary(char* pattern, int tail, int flags)
{
    const PlainPath path(AT_FDCWD, pattern);
    if (path.isWatched() && FaultPlan::next(Operation::CreateFile, path.text()) == Verdict::Fail)
        return -1;
    const int file = nextTemporary(pattern, tail, flags);
    if (file >= 0)
        WatchedFiles::opened(file, path.isWatched());
    return file;
}

/// A disk that stays full has no free space.
int spaceOf(const char* name, struct statvfs* space)
{
    const int result = nextSpace(name, space);
    if (result == 0 && PlainPath(AT_FDCWD, name).isOnWatchedDisk()
        && FaultPlan::stays(FaultKind::DiskFull))
        space->f_bavail = 0;
    return result;
}

} // namespace

#pragma GCC visibility push(default)
extern "C" {

FILE* fopen(const char* name, const char* mode)
{
    return opened(name, mode);
}

FILE* fopen64(const char* name, const char* mode)
{
    return opened(name, mode);
}

std::size_t fread(void* to, std::size_t size, std::size_t count, FILE* stream)
{
    return verdict(Operation::Read, stream) == Verdict::Fail ? failed(stream)
                                                             : nextRead(to, size, count, stream);
}

std::size_t fwrite(const void* from, std::size_t size, std::size_t count, FILE* stream)
{
    WatchedFiles::written(::fileno(stream));
    switch (verdict(Operation::Write, stream)) {
    case Verdict::Fail:
        return failed(stream);
    case Verdict::Finish:
        nextWrite(from, size, count / 2, stream);
        std::fflush(stream);
        FaultPlan::die();
    case Verdict::Pass:
    case Verdict::Halve: // the library itself would go on with the other half
        break;
    }
    return nextWrite(from, size, count, stream);
}

int fclose(FILE* stream)
{
    const int file = ::fileno(stream);
    const bool fails =
        WatchedFiles::isWritten(file) && verdict(Operation::Close, stream) == Verdict::Fail;
    const int reason = errno;
    if (fails) {
        std::fflush(stream);
        WatchedFiles::loseData(file);
    }
    WatchedFiles::closed(file, !fails);
    const int result = nextClose(stream);
    if (!fails)
        return result;
    errno = reason;
    return EOF;
}

int mkstemp(char* pattern)
{
    return temporary(pattern, 0, 0);
}

int mkstemp64(char* pattern)
{
    return temporary(pattern, 0, 0);
}

int mkostemp(char* pattern, int flags)
{
    return temporary(pattern, 0, flags);
}

int mkostemp64(char* pattern, int flags)
{
    return temporary(pattern, 0, flags);
}

DIR* opendir(const char* name)
{
    const PlainPath path(AT_FDCWD, name);
    const bool fails =
        path.isWatched() && FaultPlan::next(Operation::OpenFolder, path.text()) == Verdict::Fail;
    return fails ? nullptr : nextOpenFolder(name);
}

int closedir(DIR* folder)
{
    WatchedFiles::closed(::dirfd(folder), true);
    return nextCloseFolder(folder);
}

int statvfs(const char* name, struct statvfs* space) noexcept
{
    return spaceOf(name, space);
}

int statvfs64(const char* name, struct statvfs64* space) noexcept
{
    return spaceOf(
        name, reinterpret_cast<struct statvfs*>(space)); // one structure where long has 64 bits
}

int access(const char* name, int mode) noexcept
{
    if ((mode & W_OK) != 0 && FaultPlan::stays(FaultKind::Refused)
        && PlainPath(AT_FDCWD, name).isOnWatchedDisk()) {
        errno = EACCES;
        return -1;
    }
    return static_cast<int>(::syscall(SYS_faccessat, AT_FDCWD, name, mode));
}

} // extern "C"
#pragma GCC visibility pop
