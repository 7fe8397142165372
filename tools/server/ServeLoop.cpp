// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "server/ServeLoop.h"

#include "server/OpenFiles.h"
#include "server/ServerLimits.h"
#include "server/TreeServer.h"

#include <csignal>
#include <cstdio>

#include <pthread.h>

namespace ServeLoop {

namespace {

sigset_t endSignals()
{
    sigset_t ends;
    sigemptyset(&ends);
    sigaddset(&ends, SIGINT);
    sigaddset(&ends, SIGTERM);
    return ends;
}

void print(const QString& line)
{
    std::printf("%s\n", line.toLocal8Bit().constData());
    std::fflush(stdout);
}

} // namespace

bool run(const QString& folder, quint16 port, bool quiet, QString* error)
{
    // Before the server's threads start, so that they inherit the mask and receive no signals.
    const sigset_t ends = endSignals();
    pthread_sigmask(SIG_BLOCK, &ends, nullptr);
    OpenFiles::raiseLimit(ServerLimits().connections * OpenFiles::perConnection);
    TreeServer server;
    if (!quiet)
        server.setAccessLog(&print);
    if (!server.start(folder, port)) {
        *error = server.errorText();
        return false;
    }
    print(QStringLiteral("serving %1 at %2").arg(folder, server.url()));
    int signal = 0;
    sigwait(&ends, &signal);
    return true;
}

} // namespace ServeLoop
