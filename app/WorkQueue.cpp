// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "WorkQueue.h"

#include <QThread>

#include <algorithm>
#include <utility>

WorkQueue::WorkQueue(QObject* parent)
    : QObject(parent)
{
}

WorkQueue::~WorkQueue()
{
    shutDown();
}

void WorkQueue::add(Job job)
{
    if (m_isShutDown)
        return;
    if (m_thread && m_running.isYielding && !job.isYielding)
        m_cancel.cancel();
    const auto place = job.isYielding
        ? m_jobs.end()
        : std::find_if(m_jobs.begin(), m_jobs.end(),
                       [](const Job& waiting) { return waiting.isYielding; });
    m_jobs.insert(place, std::move(job));
    startNext();
}

void WorkQueue::runAlone(const std::function<void()>& function)
{
    Job job;
    job.prepare = [function](const CancelToken&) {
        function();
        return Work();
    };
    add(std::move(job));
}

/// Jobs that a job's callbacks add are started by the call that invoked these.
void WorkQueue::startNext()
{
    if (m_isStarting)
        return;
    m_isStarting = true;
    while (!m_thread && !m_jobs.empty()) {
        Job job = std::move(m_jobs.front());
        m_jobs.pop_front();
        m_cancel = CancelToken();
        m_work = job.prepare(m_cancel);
        if (!m_work) {
            if (job.ended)
                job.ended(false);
            continue;
        }
        m_running = std::move(job);
        m_thread = QThread::create([this] { m_work(); });
        connect(m_thread, &QThread::finished, this, &WorkQueue::endJob);
        m_thread->start();
    }
    m_isStarting = false;
}

void WorkQueue::endJob()
{
    if (!m_thread)
        return; // the event was on its way during shutDown()
    m_thread->wait();
    delete std::exchange(m_thread, nullptr);
    m_work = nullptr;
    const Job ended = std::exchange(m_running, Job());
    if (ended.ended)
        ended.ended(m_cancel.isCancelled());
    startNext();
}

void WorkQueue::shutDown()
{
    m_isShutDown = true;
    m_jobs.clear();
    m_cancel.cancel();
    if (!m_thread)
        return;
    m_thread->disconnect(this);
    m_thread->wait();
    delete std::exchange(m_thread, nullptr);
    m_work = nullptr;
}
