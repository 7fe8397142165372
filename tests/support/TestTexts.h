// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "support/TestMain.h"

#include <QDir>
#include <QString>

/// @name Short names for tests that are full of literals
/// @{
inline QString text(const char* utf8)
{
    return QString::fromUtf8(utf8);
}

/// Returns the path of an entry in the program's home.
inline QString home(const char* name)
{
    return TestHome::path() + QLatin1Char('/') + text(name);
}

/// Returns a path that begins with a slash as an absolute one, on Windows on the drive of the
/// current folder or of another one.
inline QString absolute(const char* path, const QString& folder = QDir::currentPath())
{
    return QDir(folder).absoluteFilePath(text(path));
}
/// @}
