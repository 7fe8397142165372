// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "catalogue/CatalogueJobs.h"

#include "catalogue/CatalogueChanges.h"

#include <QThread>

#include <utility>

CatalogueJobs::CatalogueJobs()
{
    const CatalogueChanges* const changes = CatalogueChanges::instance();
    connect(changes, &CatalogueChanges::announced, this, &CatalogueJobs::suspend);
    connect(changes, &CatalogueChanges::ended, this, &CatalogueJobs::resume);
}

CatalogueJobs::~CatalogueJobs()
{
    m_cancel.cancel();
    joinThread();
}

void CatalogueJobs::add(Job job)
{
    m_jobs.push_back(std::move(job));
    startNext();
}

void CatalogueJobs::interrupt()
{
    m_cancel.cancel();
}

/// Jobs that a job's functions add are started by the call that invoked these.
void CatalogueJobs::startNext()
{
    if (m_isStarting || m_isSuspended)
        return;
    m_isStarting = true;
    while (!m_thread && !m_jobs.empty()) {
        Job job = std::move(m_jobs.front());
        m_jobs.pop_front();
        m_cancel = CancelToken();
        m_work = job.prepare(m_cancel);
        if (!m_work) {
            job.ended();
            continue;
        }
        m_running = std::move(job);
        m_thread = QThread::create([this] { m_work(); });
        connect(m_thread, &QThread::finished, this, [this, number = ++m_number] {
            if (m_thread && number == m_number) // else the thread has been joined meanwhile
                endJob();
        });
        m_thread->start();
    }
    m_isStarting = false;
}

void CatalogueJobs::joinThread()
{
    if (!m_thread)
        return;
    m_thread->disconnect(this);
    m_thread->wait();
    delete std::exchange(m_thread, nullptr);
    m_work = nullptr;
}

void CatalogueJobs::endJob()
{
    joinThread();
    const Job ended = std::exchange(m_running, Job());
    ended.ended();
    startNext();
}

void CatalogueJobs::suspend()
{
    m_isSuspended = true;
    m_cancel.cancel();
    if (m_thread)
        endJob();
}

void CatalogueJobs::resume()
{
    m_isSuspended = false;
    startNext();
}
