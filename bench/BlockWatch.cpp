// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "BlockWatch.h"

#include <QCoreApplication>
#include <QEvent>
#include <QEventLoop>
#include <QTimer>

#include <pthread.h>

namespace {

constexpr auto eventType = static_cast<QEvent::Type>(QEvent::User + 1);
constexpr std::chrono::milliseconds interval(2);
constexpr int quietMs = 300;         // longer than any delay of a layout
constexpr double quietWorkMs = 15.0; // what answering the events takes meanwhile

} // namespace

BlockWatch::BlockWatch()
{
    ::pthread_getcpuclockid(::pthread_self(), &m_clock);
    m_thread = std::thread([this] { run(); });
}

BlockWatch::~BlockWatch()
{
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_isStopping = true;
    }
    m_changed.notify_one();
    m_thread.join();
}

void BlockWatch::settle()
{
    double before = 0;
    do {
        before = usedMs();
        QEventLoop loop;
        QTimer::singleShot(quietMs, &loop, &QEventLoop::quit);
        loop.exec();
    } while (usedMs() - before > quietWorkMs);
}

double BlockWatch::takeLongestMs()
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    const double longest = m_longestMs;
    m_longestMs = 0;
    return longest;
}

double BlockWatch::usedMs() const
{
    timespec now = {};
    ::clock_gettime(m_clock, &now);
    return static_cast<double>(now.tv_sec) * 1e3 + static_cast<double>(now.tv_nsec) / 1e6;
}

bool BlockWatch::event(QEvent* event)
{
    if (event->type() != eventType)
        return QObject::event(event);
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_answeredMs = usedMs();
        m_isAnswered = true;
    }
    m_changed.notify_one();
    return true;
}

void BlockWatch::run()
{
    std::unique_lock<std::mutex> lock(m_mutex);
    while (!m_isStopping) {
        m_isAnswered = false;
        const double postedMs = usedMs();
        QCoreApplication::postEvent(this, new QEvent(eventType));
        m_changed.wait(lock, [this] { return m_isAnswered || m_isStopping; });
        if (m_isAnswered)
            m_longestMs = qMax(m_longestMs, m_answeredMs - postedMs);
        m_changed.wait_for(lock, interval, [this] { return m_isStopping; });
    }
}
