// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "support/ThisProcess.h"

#include <QDir>

#include <vector>

#include <io.h>
#include <windows.h>
// behind the header that it needs
#include <psapi.h>

namespace {

/// The exit status by which QProcess knows that a process was killed.
constexpr UINT killedStatus = 0xf291;

} // namespace

void ThisProcess::kill()
{
    ::TerminateProcess(::GetCurrentProcess(), killedStatus);
    waitForKill();
}

void ThisProcess::waitForKill()
{
    for (;;)
        ::Sleep(INFINITE);
}

qint64 ThisProcess::residentBytes()
{
    PROCESS_MEMORY_COUNTERS memory = {};
    if (::K32GetProcessMemoryInfo(::GetCurrentProcess(), &memory, sizeof memory) == 0)
        return 0;
    return static_cast<qint64>(memory.WorkingSetSize);
}

QString ThisProcess::pathOf(int handle)
{
    std::vector<wchar_t> path(32768);
    const DWORD length =
        ::GetFinalPathNameByHandleW(reinterpret_cast<HANDLE>(::_get_osfhandle(handle)), path.data(),
                                    static_cast<DWORD>(path.size()), 0);
    return QDir::fromNativeSeparators(
        QString::fromWCharArray(path.data(), static_cast<int>(length)));
}

int ThisProcess::openFiles()
{
    DWORD handles = 0;
    ::GetProcessHandleCount(::GetCurrentProcess(), &handles);
    return static_cast<int>(handles);
}
