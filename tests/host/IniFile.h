// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "support/CatalogueFiles.h"
#include "support/TestMain.h"

/// Writes a new settings file on every call and returns its path.
inline QString iniFile(const QByteArray& content)
{
    static int number = 0;
    QString path = TestHome::path() + QStringLiteral("/ini/%1.ini").arg(++number);
    CatalogueFiles::write(path, content);
    return path;
}
