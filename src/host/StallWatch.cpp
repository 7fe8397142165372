// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "host/StallWatch.h"

#include <utility>

using namespace std::chrono;

namespace {

/// Minimum rate of a transfer, averaged over the limit.
constexpr qint64 minBytesPerSecond = 1000;

} // namespace

void StallWatch::restart()
{
    m_hasNewBytes = false;
    m_lastByte = Clock::now();
    m_windowStart = m_lastByte;
    m_windowBytes = 0;
}

void StallWatch::add(std::size_t bytes)
{
    m_hasNewBytes = true;
    m_windowBytes += static_cast<qint64>(bytes);
}

QString StallWatch::fault(milliseconds limit, int sideBySide)
{
    const Clock::time_point now = Clock::now();
    if (std::exchange(m_hasNewBytes, false))
        m_lastByte = now;
    const auto silence = now - m_lastByte;
    const auto window = duration_cast<milliseconds>(now - m_windowStart);
    if (silence > limit)
        return QStringLiteral("no data received for %1 ms").arg(limit.count());
    // During silence, the silence limit decides.
    if (window < limit || silence > limit / 2)
        return {};
    if (m_windowBytes < minBytesPerSecond * window.count() / 1000 / sideBySide) {
        return QStringLiteral("only %1 bytes received in %2 ms")
            .arg(m_windowBytes)
            .arg(window.count());
    }
    m_windowStart = now;
    m_windowBytes = 0;
    return {};
}
