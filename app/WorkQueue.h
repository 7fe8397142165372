// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "host/CancelToken.h"

#include <QObject>

#include <deque>
#include <functional>

class QThread;

/// Runs jobs that use the catalogue, one after the other, on a thread of its own. All calls and
/// callbacks are the GUI thread's; only Work runs on the other thread.
class WorkQueue : public QObject
{
    Q_OBJECT

public:
    /// The part of a job that the thread runs. It is destroyed, with all that it holds, before the
    /// job's end is reported.
    using Work = std::function<void()>;

    struct Job
    {
        /// Called when the job's turn has come; returns its work, empty if there is none.
        std::function<Work(const CancelToken& cancel)> prepare;
        /// Called when the job has ended (may be empty), with whether it was cancelled.
        std::function<void(bool isCancelled)> ended;
        /// True: the job is cancelled in favour of others, and waits behind them.
        bool isYielding = false;
    };

    explicit WorkQueue(QObject* parent);
    ~WorkQueue() override;

    void add(Job job);
    /// Calls a function while no job runs: at once, if none does.
    void runAlone(const std::function<void()>& function);
    /// Cancels the running job and waits for its end; drops all others. No callback follows, and no
    /// job begins any more.
    void shutDown();

private:
    void startNext();
    void endJob();

    std::deque<Job> m_jobs; // yielding ones last
    Job m_running;
    Work m_work; // of the running job
    CancelToken m_cancel;
    QThread* m_thread = nullptr; // null: no job runs
    bool m_isStarting = false;
    bool m_isShutDown = false;
};
