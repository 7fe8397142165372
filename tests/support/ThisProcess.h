// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>
#include <QtGlobal>

/// Measures or ends the test's own process.
namespace ThisProcess {

/// Ends the process at once, as if another one had killed it: nothing is destroyed or saved.
[[noreturn]] void kill();
/// Waits until another process kills this one.
[[noreturn]] void waitForKill();
/// Returns the resident memory in bytes.
qint64 residentBytes();
/// Returns how many files, and what else the system counts among them, are open.
int openFiles();
/// Returns the path of an open file.
QString pathOf(int handle);

} // namespace ThisProcess
