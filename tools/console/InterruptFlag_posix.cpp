// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "InterruptFlag.h"

#include <csignal>

namespace {

volatile std::sig_atomic_t isInterrupted = 0; // written by the signal handler only

void interrupt(int)
{
    isInterrupted = 1;
}

} // namespace

void InterruptFlag::install()
{
    struct sigaction action = {};
    action.sa_handler = &interrupt;
    action.sa_flags = static_cast<int>(SA_RESTART | SA_RESETHAND);
    ::sigaction(SIGINT, &action, nullptr);
    ::sigaction(SIGTERM, &action, nullptr);
}

bool InterruptFlag::isSet()
{
    return isInterrupted != 0;
}
