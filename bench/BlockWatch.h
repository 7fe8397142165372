// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QObject>

#include <chrono>
#include <condition_variable>
#include <ctime>
#include <mutex>
#include <thread>

/// Measures how long the event loop of the GUI thread does not return to its queue, in processor
/// time of that thread: a thread of its own posts one event after the other and reads how much the
/// GUI thread has worked until it handles each.
class BlockWatch : public QObject
{
public:
    /// Watches the calling thread, which must be the GUI thread.
    BlockWatch();
    ~BlockWatch() override;

    /// Runs the event loop until the GUI thread has nothing to do any more.
    void settle();
    /// Returns the longest block since the last call, in milliseconds. Call it after settle().
    double takeLongestMs();
    /// Returns the processor time that the GUI thread has used since it was started.
    double usedMs() const;

protected:
    bool event(QEvent* event) override;

private:
    void run();

    clockid_t m_clock;  // the GUI thread's processor time
    std::mutex m_mutex; // guards what follows
    std::condition_variable m_changed;
    bool m_isAnswered = false;
    bool m_isStopping = false;
    double m_answeredMs = 0;
    double m_longestMs = 0;
    std::thread m_thread;
};
