// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QtGlobal>

/// Sockets of the benchmarks' servers, on 127.0.0.1.
class Loopback
{
public:
    Loopback() = delete;

    /// Returns a listening socket on a free port, which it stores in `port`; ends the program if
    /// there is none.
    static int listen(quint16& port);
    /// Makes a connection send small pieces immediately.
    static void sendAtOnce(int socket);
    /// Sends all bytes; returns false if the connection is gone.
    static bool sendAll(int socket, const char* data, qint64 length);
};
