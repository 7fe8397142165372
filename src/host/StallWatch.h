#pragma once

#include <QString>

#include <chrono>
#include <cstddef>

/// Tells when so little comes from a server that a transfer would never end. Internal to the
/// library; a value.
class StallWatch
{
public:
    /// Begins with no byte received, now.
    void restart();
    /// Notes bytes that have come, those of header and trailer included.
    void add(std::size_t bytes);

    /// Returns why the transfer counts as stalled, for people; empty if it does not: no byte came
    /// for longer than `limit`, or over that time fewer than 1,000 a second.
    QString fault(std::chrono::milliseconds limit);

private:
    using Clock = std::chrono::steady_clock;

    Clock::time_point m_lastByte;
    Clock::time_point m_windowStart; // of the time over which the rate is measured
    qint64 m_windowBytes = 0;        // that came since then
};
