// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "support/SpecialFiles.h"

#include <QFile>
#include <QFileInfo>

#include <sys/stat.h>

void SpecialFiles::makePipe(const QString& path)
{
    if (::mkfifo(QFile::encodeName(path).constData(), S_IRUSR | S_IWUSR) != 0)
        qFatal("no pipe %s", qPrintable(path));
}

QString SpecialFiles::emptyDevice()
{
    return QStringLiteral("/dev/null");
}

QString SpecialFiles::endlessDevice()
{
    return QStringLiteral("/dev/zero");
}

bool SpecialFiles::canLinkTo(const QString& /*target*/, const QString& /*path*/)
{
    return true;
}

bool SpecialFiles::link(const QString& target, const QString& path)
{
    return QFile::link(target, path);
}

bool SpecialFiles::isLink(const QString& path)
{
    return QFileInfo(path).isSymLink();
}

bool SpecialFiles::canRemoveLinks()
{
    return true;
}

void SpecialFiles::unlink(const QString& path)
{
    QFile::remove(path);
}

bool SpecialFiles::tellsRemoved()
{
    return true;
}
