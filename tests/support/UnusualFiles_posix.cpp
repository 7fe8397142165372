// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "support/UnusualFiles.h"

#include <QFile>
#include <QFileInfo>

#include <sys/stat.h>

void UnusualFiles::makePipe(const QString& path)
{
    if (::mkfifo(QFile::encodeName(path).constData(), S_IRUSR | S_IWUSR) != 0)
        qFatal("no pipe %s", qPrintable(path));
}

QString UnusualFiles::emptyDevice()
{
    return QStringLiteral("/dev/null");
}

QString UnusualFiles::endlessDevice()
{
    return QStringLiteral("/dev/zero");
}

bool UnusualFiles::canLinkTo(const QString& /*target*/, const QString& /*path*/)
{
    return true;
}

bool UnusualFiles::link(const QString& target, const QString& path)
{
    return QFile::link(target, path);
}

bool UnusualFiles::isLink(const QString& path)
{
    return QFileInfo(path).isSymLink();
}

bool UnusualFiles::canRemoveLinks()
{
    return true;
}

void UnusualFiles::unlink(const QString& path)
{
    QFile::remove(path);
}

bool UnusualFiles::tellsRemoved()
{
    return true;
}
