// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <chrono>

/// Limits that keep slow, stalled and idle clients from holding up the others. The defaults are
/// mvserve's.
struct ServerLimits
{
    /// Time for the head of a request to arrive, counted from its first byte. An overdue request
    /// ends its connection, with status 408 if its first line has arrived.
    std::chrono::milliseconds request = std::chrono::seconds(10);
    /// Time after which a connection without a request is closed.
    std::chrono::milliseconds idle = std::chrono::seconds(15);
    /// Time for the client to make room for the next part of an answer; the whole answer may take
    /// any time. The system reports room in steps of up to 600 kB, so the default suits readers
    /// from 2 kB/s.
    std::chrono::milliseconds stalled = std::chrono::minutes(5);
    /// Maximum number of open connections, at least 1. A further one replaces the one that has been
    /// idle longest; it is refused if none is idle.
    int connections = 2048;
    /// Maximum number of requests served at a time, each by a thread; at least 1. While others
    /// wait, the clients that have been quiet longest are cut off.
    int requests = 256;
};
