// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <memory>

class QProcess;

/// Child processes with a group of their own, so that an interrupt at the terminal reaches only
/// this program, which decides when to pass it on. On Linux and Windows they also end with this
/// program, however that ends.
namespace ChildGroup {

/// Returns a process that has not been started.
std::unique_ptr<QProcess> makeProcess();
/// Asks a running process of makeProcess() to end, as an interrupt would.
void interrupt(QProcess& process);

} // namespace ChildGroup
