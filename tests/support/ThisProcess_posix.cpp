// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "support/ThisProcess.h"

#include <QByteArray>
#include <QDir>
#include <QFile>

#include <csignal>

#include <unistd.h>

void ThisProcess::kill()
{
    ::kill(::getpid(), SIGKILL);
    waitForKill();
}

void ThisProcess::waitForKill()
{
    for (;;)
        ::pause();
}

qint64 ThisProcess::residentBytes()
{
    QFile file(QStringLiteral("/proc/self/statm"));
    if (!file.open(QIODevice::ReadOnly))
        return 0;
    const QList<QByteArray> pages = file.readAll().split(' ');
    return pages.size() > 1 ? pages.at(1).toLongLong() * ::sysconf(_SC_PAGESIZE) : 0;
}

QString ThisProcess::pathOf(int handle)
{
    return QFile::symLinkTarget(QStringLiteral("/proc/self/fd/%1").arg(handle));
}

int ThisProcess::openFiles()
{
    return static_cast<int>(QDir(QStringLiteral("/proc/self/fd"))
                                .entryList(QDir::NoDotAndDotDot | QDir::AllEntries)
                                .size());
}
