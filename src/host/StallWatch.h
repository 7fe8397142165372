// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

#include <chrono>
#include <cstddef>

/// Detects a transfer too slow ever to end. Internal to the library; a value type.
class StallWatch
{
public:
    /// Starts over from zero bytes, now.
    void restart();
    /// Records received bytes, including header and trailer. fault() takes them for received just
    /// before it is called, which saves reading the clock for every piece.
    void add(std::size_t bytes);

    /// Returns a readable reason why the transfer counts as stalled; empty if it does not: no byte
    /// for longer than `limit`, or fewer than 1,000 bytes a second over that time, divided by the
    /// number of transfers that share the line.
    QString fault(std::chrono::milliseconds limit, int sideBySide = 1);

private:
    using Clock = std::chrono::steady_clock;

    bool m_hasNewBytes = false;      // since the last call of fault()
    Clock::time_point m_lastByte;    // as fault() sees it
    Clock::time_point m_windowStart; // of the period over which the rate is measured
    qint64 m_windowBytes = 0;        // received since then
};
