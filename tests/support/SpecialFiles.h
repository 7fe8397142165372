// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>
#include <QtGlobal>

/// Files that are no regular ones.
namespace SpecialFiles {

/// Whether a folder can contain a pipe. On Windows none can.
#ifdef Q_OS_WIN
constexpr bool hasPipes = false;
#else
constexpr bool hasPipes = true;
#endif

/// Makes a pipe that nobody writes; ends the program if that fails.
void makePipe(const QString& path);

/// Return the names of devices: one from which nothing can be read, and one from which reading has
/// no end, where the system has such a one.
QString emptyDevice();
QString endlessDevice();

} // namespace SpecialFiles
