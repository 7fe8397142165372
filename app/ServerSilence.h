// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QElapsedTimer>

#include <chrono>

/// Notices that a download has received nothing for so long that its user should be told. A value
/// type; GUI thread.
class ServerSilence
{
public:
    /// Sets, for the whole process, how long nothing may arrive before isLong() is true; 5 seconds
    /// by default.
    static void setLimit(std::chrono::milliseconds limit);

    /// Starts the time, now.
    ServerSilence() { m_since.start(); }
    /// Records the bytes received so far. Starts the time again if they have changed.
    void note(qint64 receivedBytes);
    /// Returns whether nothing has arrived for longer than the limit.
    bool isLong() const;

private:
    QElapsedTimer m_since;
    qint64 m_receivedBytes = 0;
};
