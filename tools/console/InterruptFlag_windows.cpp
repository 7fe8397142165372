// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "InterruptFlag.h"

#include <atomic>

#include <windows.h>

namespace {

std::atomic<bool> isInterrupted{false};

BOOL WINAPI interrupt(DWORD event)
{
    if (event != CTRL_C_EVENT && event != CTRL_BREAK_EVENT)
        return FALSE; // ends the process
    return isInterrupted.exchange(true) ? FALSE : TRUE;
}

} // namespace

void InterruptFlag::install()
{
    ::SetConsoleCtrlHandler(&interrupt, TRUE);
}

bool InterruptFlag::isSet()
{
    return isInterrupted;
}
