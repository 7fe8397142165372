// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "Interrupt.h"

#include <mutex>

#include <windows.h>

namespace {

std::mutex mutex; // guards the next one: the system calls the handler on a thread of its own
Interrupt* receiver = nullptr; // null after the first interrupt

BOOL WINAPI handle(DWORD event)
{
    const std::lock_guard<std::mutex> lock(mutex);
    if (!receiver || (event != CTRL_C_EVENT && event != CTRL_BREAK_EVENT))
        return FALSE; // ends the process
    QMetaObject::invokeMethod(receiver, &Interrupt::requested, Qt::QueuedConnection);
    receiver = nullptr;
    return TRUE;
}

} // namespace

class Interrupt::Private
{
};

Interrupt::Interrupt()
{
    const std::lock_guard<std::mutex> lock(mutex);
    receiver = this;
    ::SetConsoleCtrlHandler(&handle, TRUE);
}

Interrupt::~Interrupt()
{
    ::SetConsoleCtrlHandler(&handle, FALSE);
    const std::lock_guard<std::mutex> lock(mutex);
    receiver = nullptr;
}
