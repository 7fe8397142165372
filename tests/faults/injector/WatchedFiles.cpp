// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "WatchedFiles.h"

#include "FaultPlan.h"

#include <atomic>
#include <cstdio>
#include <cstring>

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace {

/// Removes "//", "/./" and "/name/.." from an absolute path.
void simplify(char* path)
{
    char* end = path;
    for (const char* from = path; *from;) {
        while (*from == '/')
            ++from;
        const std::size_t length = std::strcspn(from, "/");
        const bool isParent = length == 2 && from[0] == '.' && from[1] == '.';
        if (isParent) {
            if (end > path)
                --end;
            while (end > path && *end != '/')
                --end;
        } else if (length > 0 && !(length == 1 && *from == '.')) {
            *end++ = '/';
            std::memmove(end, from, length);
            end += length;
        }
        from += length;
    }
    *end = '\0';
}

} // namespace

PlainPath::PlainPath(int folder, const char* name)
{
    if (!name || *FaultPlan::folder() == '\0')
        return;
    const int before = errno;
    const std::size_t most = m_text.size() - 1;
    if (*name != '/' && folder == AT_FDCWD) {
        ::syscall(SYS_getcwd, m_text.data(), most);
    } else if (*name != '/') {
        std::array<char, 64> link = {};
        std::snprintf(link.data(), link.size(), "/proc/self/fd/%d", folder);
        ::syscall(SYS_readlinkat, AT_FDCWD, link.data(), m_text.data(), most);
    }
    const std::size_t length = std::strlen(m_text.data());
    std::snprintf(m_text.data() + length, m_text.size() - length, "/%s", name);
    simplify(m_text.data());
    errno = before;
}

bool PlainPath::isWatched() const
{
    const char* const folder = FaultPlan::folder();
    const std::size_t length = std::strlen(folder);
    return length > 0 && std::strncmp(text(), folder, length) == 0 && text()[length] == '/';
}

bool PlainPath::isOnWatchedDisk() const
{
    return isWatched() || (*text() != '\0' && std::strcmp(text(), FaultPlan::folder()) == 0);
}

bool PlainPath::exists() const
{
    const int before = errno;
    struct stat status = {};
    const bool found = ::lstat(text(), &status) == 0;
    errno = before;
    return found;
}

namespace WatchedFiles {

namespace {

constexpr int most = 1 << 16;
constexpr unsigned char watchedFlag = 1;
constexpr unsigned char writtenFlag = 2;

std::array<std::atomic<unsigned char>, most> flags;
std::array<std::atomic<int>, most> originals; // for duplicates: the other descriptor plus 1

bool has(int file, unsigned char flag)
{
    return file >= 0 && file < most && (flags[static_cast<std::size_t>(file)] & flag) != 0;
}

void set(int file, unsigned char value)
{
    if (file >= 0 && file < most)
        flags[static_cast<std::size_t>(file)] = value;
}

} // namespace

void opened(int file, bool watched)
{
    set(file, watched ? watchedFlag : 0);
}

void duplicated(int file, int duplicate)
{
    if (file < 0 || file >= most || duplicate < 0 || duplicate >= most)
        return;
    set(duplicate, flags[static_cast<std::size_t>(file)]);
    originals[static_cast<std::size_t>(duplicate)] = file + 1;
}

void written(int file)
{
    if (has(file, watchedFlag))
        set(file, watchedFlag | writtenFlag);
}

void flushed(int file)
{
    if (has(file, watchedFlag))
        set(file, watchedFlag);
}

void closed(int file, bool isStored)
{
    if (!has(file, watchedFlag))
        return;
    set(file, 0);
    const int original = originals[static_cast<std::size_t>(file)].exchange(0) - 1;
    if (original >= 0 && isStored)
        flushed(original);
}

void loseData(int file)
{
    struct stat status = {};
    if (::fstat(file, &status) == 0 && S_ISREG(status.st_mode))
        ::syscall(SYS_ftruncate, file, status.st_size / 2);
}

bool isWatched(int file)
{
    return has(file, watchedFlag);
}

bool isWritten(int file)
{
    return has(file, writtenFlag);
}

} // namespace WatchedFiles
