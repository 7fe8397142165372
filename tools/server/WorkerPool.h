// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QtGlobal>

#include <condition_variable>
#include <deque>
#include <functional>
#include <mutex>
#include <thread>
#include <vector>

/// Runs jobs on its own threads. Threads are added as jobs wait, up to a limit, and are kept.
class WorkerPool
{
public:
    explicit WorkerPool(int maxThreads);
    /// Runs the waiting jobs, and joins the threads.
    ~WorkerPool();
    Q_DISABLE_COPY_MOVE(WorkerPool)

    /// Runs a job as soon as a thread is free; jobs start in order. Call it on one thread at a
    /// time.
    void start(std::function<void()> job);

private:
    void addThread();
    void work();

    const size_t m_maxThreads;
    std::mutex m_mutex; // guards all members below
    std::condition_variable m_changed;
    std::deque<std::function<void()>> m_jobs;
    std::vector<std::thread> m_threads;
    size_t m_freeThreads = 0;
    bool m_isEnding = false;
};
