#pragma once

/// The number of file descriptors that this process may have open.
namespace OpenFiles {

/// Descriptors to allow for every connection of a server: its socket, and the file being sent.
constexpr int perConnection = 2;

/// Returns the limit that is in force.
int limit();

/// Raises the limit to `wanted`, or as far as the system permits. Never lowers it.
void raiseLimit(int wanted);

} // namespace OpenFiles
