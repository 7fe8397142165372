// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "host/CancelToken.h"
#include "records/MvResourceExport.h"

#include <QObject>

#include <deque>
#include <functional>

class QThread;

/// Runs jobs that use items of the catalogue, one after the other, on a thread of its own. A reload
/// of the catalogue cancels the running job and waits for it; none begins until the reload is over.
///
/// Internal to this project's libraries. GUI thread only, except for Work.
class MVRESOURCE_EXPORT CatalogueJobs : public QObject
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
        /// Called when the work has ended or was cancelled; may add the job again.
        std::function<void()> ended;
    };

    CatalogueJobs();
    ~CatalogueJobs() override;

    void add(Job job);
    /// Cancels the running job; its end is reported as usual.
    void interrupt();
    /// Returns whether a job is running or waiting.
    bool isBusy() const { return m_thread || !m_jobs.empty(); }

private:
    void suspend();
    void resume();
    void startNext();
    void joinThread();
    void endJob();

    std::deque<Job> m_jobs;
    Job m_running;
    Work m_work; // of the running job
    CancelToken m_cancel;
    QThread* m_thread = nullptr; // null: no job runs
    quint64 m_number = 0;        // of the running job
    bool m_isSuspended = false;
    bool m_isStarting = false;
};
