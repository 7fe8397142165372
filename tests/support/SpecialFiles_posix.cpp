// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "support/SpecialFiles.h"

#include <QFile>

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
