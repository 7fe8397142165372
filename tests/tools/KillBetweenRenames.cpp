// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

// Preloaded into a build to simulate a file system that cannot exchange two folders, and a kill
// between the two renames that replace a folder there.

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstring>

#include <fcntl.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace {

/// The second rename puts the new folder in place.
bool isNewFolder(const char* name)
{
    const char suffix[] = ".new";
    const std::size_t tail = std::strlen(suffix);
    const std::size_t length = std::strlen(name);
    return length > tail && std::strcmp(name + length - tail, suffix) == 0;
}

} // namespace

extern "C" [[gnu::visibility("default")]] int renameat2(int, const char*, int, const char*,
                                                        unsigned int) noexcept
{
    errno = EINVAL;
    return -1;
}

extern "C" [[gnu::visibility("default")]] int rename(const char* from, const char* to) noexcept
{
    if (isNewFolder(from))
        ::kill(::getpid(), SIGKILL);
    return static_cast<int>(::syscall(SYS_renameat2, AT_FDCWD, from, AT_FDCWD, to, 0));
}
