// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "FaultPlan.h"

#include <array>
#include <atomic>
#include <climits>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include <fcntl.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace FaultPlan {

namespace {

// Written once, before main().
std::array<char, PATH_MAX> below = {};
std::array<char, PATH_MAX> reportFile = {};
FaultKind kind = FaultKind::None;
long failing = 0;
bool isLasting = false;
bool isTraced = false;
bool canExchange = true;
bool canFlush = true;
bool canBeUnnamed = true;
bool canLinkEmptyPath = true;
bool canLinkProcPath = true;

std::atomic<long> counter{0};
std::atomic<bool> hasFailed{false};

void copyVariable(const char* name, std::array<char, PATH_MAX>& to)
{
    if (const char* const value = std::getenv(name))
        std::strncpy(to.data(), value, to.size() - 1);
}

FaultKind kindNamed(const char* name)
{
    for (std::size_t i = 0; i < faultCount; ++i) {
        if (name && std::strcmp(name, faultNames[i]) == 0)
            return static_cast<FaultKind>(i);
    }
    return FaultKind::None;
}

[[gnu::constructor]] void readEnvironment()
{
    const char* const number = std::getenv("MV_FAULT_AT");
    failing = number ? std::strtol(number, nullptr, 10) : 0;
    kind = kindNamed(std::getenv("MV_FAULT_KIND"));
    isLasting = std::getenv("MV_FAULT_STAYS") != nullptr;
    isTraced = std::getenv("MV_FAULT_TRACE") != nullptr;
    if (const char* const lacking = std::getenv("MV_FAULT_WITHOUT")) {
        canExchange = std::strstr(lacking, "exchange") == nullptr;
        canFlush = std::strstr(lacking, "flush") == nullptr;
        canBeUnnamed = std::strstr(lacking, "unnamed") == nullptr;
        canLinkEmptyPath = std::strstr(lacking, "emptypath") == nullptr;
        canLinkProcPath = std::strstr(lacking, "procpath") == nullptr;
    }
    copyVariable("MV_FAULT_REPORT", reportFile);
    copyVariable("MV_FAULT_BELOW", below); // last, since counting starts here
}

/// Uses direct system calls, since the C library's functions are the counted ones.
void report(const char* prefix, long number, Operation operation, const Place& place)
{
    constexpr std::size_t longestLine = PATH_MAX + 64;
    constexpr mode_t readable = 0644;
    std::array<char, PATH_MAX> path = {};
    if (place.path) {
        std::strncpy(path.data(), place.path, path.size() - 1);
    } else {
        std::array<char, 64> link = {};
        std::snprintf(link.data(), link.size(), "/proc/self/fd/%d", place.file);
        ::syscall(SYS_readlinkat, AT_FDCWD, link.data(), path.data(), path.size() - 1);
    }
    std::array<char, longestLine> line = {};
    const int length =
        std::snprintf(line.data(), line.size(), "%s%ld %s %s\n", prefix, number,
                      operationNames[static_cast<std::size_t>(operation)], path.data());
    const long file = ::syscall(SYS_openat, AT_FDCWD, reportFile.data(),
                                O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, readable);
    if (file < 0)
        return;
    ::syscall(SYS_write, file, line.data(), length);
    ::syscall(SYS_close, file);
}

} // namespace

const char* folder()
{
    return below.data();
}

Verdict next(Operation operation, const Place& place)
{
    const int before = errno;
    const long number = ++counter;
    if (isTraced)
        report("", number, operation, place);
    const bool isDue = number == failing || (isLasting && number > failing);
    if (failing == 0 || !isDue || !fits(kind, operation)) {
        errno = before;
        return Verdict::Pass;
    }
    if (!hasFailed.exchange(true))
        report("! ", number, operation, place);
    if (kind == FaultKind::Kill)
        die();
    errno = before;
    if (kind == FaultKind::KillHalfway)
        return Verdict::Finish;
    if (kind == FaultKind::Halve)
        return Verdict::Halve;
    errno = errorOf(kind);
    return Verdict::Fail;
}

void die()
{
    for (;;)
        ::syscall(SYS_kill, ::syscall(SYS_getpid), SIGKILL);
}

bool stays(FaultKind asked)
{
    return isLasting && kind == asked && hasFailed;
}

bool hasExchange()
{
    return canExchange;
}

bool hasFlush()
{
    return canFlush;
}

bool hasUnnamed()
{
    return canBeUnnamed;
}

bool hasEmptyPath()
{
    return canLinkEmptyPath;
}

bool hasProcPath()
{
    return canLinkProcPath;
}

} // namespace FaultPlan
