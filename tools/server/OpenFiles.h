// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

/// The maximum number of open file descriptors of this process.
namespace OpenFiles {

/// Descriptors to allow for every connection of a server: its socket, and the file being sent.
constexpr int perConnection = 2;

/// Returns the current limit.
int limit();

/// Raises the limit to `wanted`, or as far as the system permits. Never lowers it.
void raiseLimit(int wanted);

} // namespace OpenFiles
