// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "server/ServeLoop.h"

#include "server/EndSignals.h"
#include "server/OpenFiles.h"
#include "server/ServerLimits.h"
#include "server/TreeServer.h"

#include <cstdio>

namespace ServeLoop {

namespace {

void print(const QString& line)
{
    std::printf("%s\n", line.toLocal8Bit().constData());
    std::fflush(stdout);
}

} // namespace

bool run(const QString& folder, quint16 port, bool quiet, QString* error)
{
    EndSignals::keepBack(); // before the server's threads start
    OpenFiles::raiseLimit(ServerLimits().connections * OpenFiles::perConnection);
    TreeServer server;
    if (!quiet)
        server.setAccessLog(&print);
    if (!server.start(folder, port)) {
        *error = server.errorText();
        return false;
    }
    print(QStringLiteral("serving %1 at %2").arg(folder, server.url()));
    EndSignals::wait();
    return true;
}

} // namespace ServeLoop
