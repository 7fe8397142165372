// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QtGlobal>

#include <cstddef>

/// The calls on sockets that every system has in its own way. Stateless, any thread.
namespace Sockets {

/// The system's own type, as httplib has it.
#ifdef Q_OS_WIN
using Handle = quintptr;
#else
using Handle = int;
#endif

/// Results of receive() and send() other than a number of bytes.
constexpr std::ptrdiff_t notNow = -1; ///< wait() tells when
constexpr std::ptrdiff_t failed = -2;

/// Prepares a connected socket for the functions below. Returns false if that fails.
bool prepare(Handle socket);
/// Prepares a socket that will listen: no second server can bind its port, a server that restarts
/// can, and connections that it accepts have this buffer.
void prepareListener(Handle socket, int sendBufferBytes);
/// Lets as many connections wait to be accepted as the system permits.
void extendBacklog(Handle listener);

/// Receives what has arrived, at most `size` bytes, without waiting. Returns 0 once the other end
/// sends nothing more.
std::ptrdiff_t receive(Handle socket, char* data, std::size_t size);
/// Sends as many of the bytes as there is room for, without waiting.
std::ptrdiff_t send(Handle socket, const char* data, std::size_t size);

/// The events that wait() can wait for.
enum class Event { Input, Room };
/// Waits until the event has come or the socket has failed. Returns false on a timeout, and when a
/// signal has interrupted the wait.
bool wait(Handle socket, Event event, int timeoutMs);

/// Ends both directions; whoever waits for the socket returns.
void shutdown(Handle socket);
void close(Handle socket);

} // namespace Sockets
