// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "upload/ChildGroup.h"

#include "PreparedProcess.h"

#include <csignal>

#include <unistd.h>
#ifdef Q_OS_LINUX
#include <sys/prctl.h>
#endif

namespace {

void prepareChild()
{
    ::setpgid(0, 0);
#ifdef Q_OS_LINUX
    ::prctl(PR_SET_PDEATHSIG, SIGTERM);
#endif
}

} // namespace

std::unique_ptr<QProcess> ChildGroup::makeProcess()
{
    return std::make_unique<PreparedProcess>(&prepareChild);
}

void ChildGroup::interrupt(QProcess& process)
{
    process.terminate();
}
