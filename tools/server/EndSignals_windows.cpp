// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "server/EndSignals.h"

#include <windows.h>

namespace {

/// Returns the event that the first signal sets.
HANDLE ended()
{
    static const HANDLE event = ::CreateEventW(nullptr, TRUE, FALSE, nullptr);
    return event;
}

BOOL WINAPI handle(DWORD)
{
    return ::SetEvent(ended());
}

} // namespace

void EndSignals::keepBack()
{
    ::SetConsoleCtrlHandler(&handle, TRUE);
}

void EndSignals::wait()
{
    ::WaitForSingleObject(ended(), INFINITE);
}
