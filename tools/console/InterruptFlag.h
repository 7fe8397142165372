// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

/// Notes the first interrupt for commands without an event loop; a second one ends the process as
/// usual. See Interrupt, of which a process uses either one.
namespace InterruptFlag {

/// Begins to note interrupts. Main thread.
void install();
/// Returns whether an interrupt has come. Any thread.
bool isSet();

} // namespace InterruptFlag
