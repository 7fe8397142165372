// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "support/SpecialFiles.h"

void SpecialFiles::makePipe(const QString& path)
{
    qFatal("no pipe %s", qPrintable(path));
}

QString SpecialFiles::emptyDevice()
{
    return QStringLiteral("NUL");
}

QString SpecialFiles::endlessDevice()
{
    return emptyDevice();
}
