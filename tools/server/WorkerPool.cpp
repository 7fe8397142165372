// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "server/WorkerPool.h"

#include <system_error>

WorkerPool::WorkerPool(int maxThreads)
    : m_maxThreads(static_cast<size_t>(maxThreads))
{
}

WorkerPool::~WorkerPool()
{
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_isEnding = true;
    }
    m_changed.notify_all();
    for (std::thread& thread : m_threads)
        thread.join();
}

void WorkerPool::start(std::function<void()> job)
{
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_jobs.push_back(std::move(job));
        if (m_jobs.size() > m_freeThreads && m_threads.size() < m_maxThreads)
            addThread();
    }
    m_changed.notify_one();
}

void WorkerPool::addThread()
{
    try {
        m_threads.emplace_back(&WorkerPool::work, this);
    } catch (const std::system_error&) {
        // No thread could be created: the job waits for an existing one, or for the next attempt.
    }
}

void WorkerPool::work()
{
    std::unique_lock<std::mutex> lock(m_mutex);
    for (;;) {
        ++m_freeThreads;
        m_changed.wait(lock, [this] { return !m_jobs.empty() || m_isEnding; });
        --m_freeThreads;
        if (m_jobs.empty())
            return;
        const std::function<void()> job = std::move(m_jobs.front());
        m_jobs.pop_front();
        lock.unlock();
        job();
        lock.lock();
    }
}
