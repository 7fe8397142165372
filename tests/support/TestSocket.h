// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QtGlobal>

#include <cstddef>

/// TCP sockets on loopback for tests, which every system calls in its own way. Every call waits
/// unless it says otherwise. Stateless, any thread.
namespace TestSocket {

#ifdef Q_OS_WIN
using Handle = quintptr;
#else
using Handle = int;
#endif
constexpr Handle none = static_cast<Handle>(-1);

/// Returns a socket that keeps a port of loopback from others and refuses connections, and the
/// port; 0 picks a free one. Returns none if the port is taken.
Handle reserve(quint16& port);
/// Returns a socket that listens on the port of loopback, and the port; 0 picks a free one. Returns
/// none if the port is taken.
Handle listen(quint16& port);
/// Returns a connection to the port of loopback; none if it is refused.
Handle connect(quint16 port);
/// Returns the next connection to a listening socket, which sends at once what it is given; or
/// none.
Handle accept(Handle listener);

/// Returns whether something can be read, or accepted, or the connection has ended, within the
/// time.
bool isReadable(Handle socket, int timeoutMs);
/// Returns whether the connection has ended and everything has been received. Does not wait.
bool hasEnded(Handle socket);
/// Receives at most `size` bytes. Returns how many, 0 at the end and -1 on failure.
std::ptrdiff_t receive(Handle socket, char* data, std::size_t size);
/// Sends some of the bytes. Returns how many, -1 on failure.
std::ptrdiff_t send(Handle socket, const char* data, std::size_t size);

/// Tells the other end that nothing more comes.
void endSending(Handle socket);
/// Makes close() reset the connection.
void resetOnClose(Handle socket);
void close(Handle socket);

} // namespace TestSocket
