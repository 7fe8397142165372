// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "server/EndSignals.h"

#include <csignal>

#include <pthread.h>

namespace {

sigset_t endSignals()
{
    sigset_t ends;
    sigemptyset(&ends);
    sigaddset(&ends, SIGINT);
    sigaddset(&ends, SIGTERM);
    return ends;
}

} // namespace

void EndSignals::keepBack()
{
    // Threads inherit the mask, so none of them receives the signals.
    const sigset_t ends = endSignals();
    pthread_sigmask(SIG_BLOCK, &ends, nullptr);
}

void EndSignals::wait()
{
    const sigset_t ends = endSignals();
    int signal = 0;
    sigwait(&ends, &signal);
}
