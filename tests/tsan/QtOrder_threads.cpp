// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

// Covers the beginning and end of Qt's threads; see QtOrder.cpp for how this works.

#include "tsan/Announce.h"

#include "host/Immortal.h"

#include <QDeadlineTimer>
#include <QThread>
#include <QThreadPool>

#include <climits>
#include <condition_variable>
#include <functional>
#include <memory>
#include <mutex>
#include <set>
#include <utility>

#include <pthread.h>
#include <sys/eventfd.h>
#include <sys/syscall.h>
#include <unistd.h>

using namespace Announce;

namespace {

/// Selects Qt's own event loops; those of GLib cannot be observed.
const bool withoutGLib = qputenv("QT_NO_GLIB", "1");

/// Tracks Qt's threads to their very end, since Qt reports the end before its last steps.
struct Running
{
    std::mutex mutex; // guards threads
    std::condition_variable changed;
    std::set<const QThread*> threads;
};

Running& running()
{
    static Immortal<Running> all;
    return *all;
}

void publishEnd(const QThread* thread)
{
    publish(thread);
    const Unwatched unwatched;
    const std::lock_guard<std::mutex> lock(running().mutex);
    running().threads.erase(thread);
    running().changed.notify_all();
}

/// Must not be called by the last steps of `thread` itself, which would wait for themselves.
void observeEnd(const QThread* thread)
{
    if (thread != QThread::currentThread()) {
        const Unwatched unwatched;
        std::unique_lock<std::mutex> lock(running().mutex);
        running().changed.wait(lock, [thread] { return running().threads.count(thread) == 0; });
    }
    observe(thread);
}

using Routine = void* (*)(void*);

/// The function that a new Qt thread is to run, and its object.
struct Start
{
    const QThread* thread;
    Routine routine;
    void* argument;
};

/// The thread that QThread::start is about to create on the calling one.
thread_local const QThread* starting = nullptr;

void* runToTheEnd(void* start)
{
    const std::unique_ptr<const Start> owned(static_cast<const Start*>(start));
    void* const result = owned->routine(owned->argument);
    publishEnd(owned->thread);
    return result;
}

} // namespace

bool QThread::wait(QDeadlineTimer deadline)
{
    static auto* const next =
        original<bool(QThread*, QDeadlineTimer)>("_ZN7QThread4waitE14QDeadlineTimer");
    const bool ended = next(this, deadline);
    if (ended)
        observeEnd(this);
    return ended;
}

bool QThread::wait(unsigned long time)
{
    return wait(time == ULONG_MAX ? QDeadlineTimer(QDeadlineTimer::Forever)
                                  : QDeadlineTimer(static_cast<qint64>(time)));
}

bool QThread::isRunning() const
{
    static auto* const next = original<bool(const QThread*)>("_ZNK7QThread9isRunningEv");
    const bool isSo = next(this);
    if (!isSo)
        observeEnd(this);
    return isSo;
}

bool QThread::isFinished() const
{
    static auto* const next = original<bool(const QThread*)>("_ZNK7QThread10isFinishedEv");
    const bool isSo = next(this);
    if (isSo)
        observeEnd(this);
    return isSo;
}

void QThread::start(Priority priority)
{
    static auto* const next = original<void(QThread*, Priority)>("_ZN7QThread5startENS_8PriorityE");
    if (!isRunning())
        wait(); // waits for the last steps of an earlier run, as Qt itself does
    starting = this;
    next(this, priority);
    starting = nullptr;
}

extern "C" Q_DECL_EXPORT int pthread_create(pthread_t* id, const pthread_attr_t* attributes,
                                            Routine routine, void* argument) noexcept
{
    static auto* const next =
        original<int(pthread_t*, const pthread_attr_t*, Routine, void*)>("pthread_create");
    const QThread* const thread = std::exchange(starting, nullptr);
    if (!thread)
        return next(id, attributes, routine, argument);
    {
        const Unwatched unwatched;
        const std::lock_guard<std::mutex> lock(running().mutex);
        running().threads.insert(thread);
    }
    auto start = std::make_unique<Start>(Start{thread, routine, argument});
    const int error = next(id, attributes, &runToTheEnd, start.get());
    if (error == 0)
        Q_UNUSED(start.release()) // owned by the thread
    else
        publishEnd(thread);
    return error;
}

void QThread::quit()
{
    static auto* const next = original<void(QThread*)>("_ZN7QThread4quitEv");
    publish(this);
    next(this);
}

void QThread::exit(int code)
{
    static auto* const next = original<void(QThread*, int)>("_ZN7QThread4exitEi");
    publish(this);
    next(this, code);
}

void QThreadPool::start(std::function<void()> functionToRun, int priority)
{
    static auto* const next = original<void(QThreadPool*, std::function<void()>, int)>(
        "_ZN11QThreadPool5startESt8functionIFvvEEi");
    publish(this);
    next(
        this,
        [this, run = std::move(functionToRun)] {
            observe(this);
            run();
            publish(this);
        },
        priority);
}

bool QThreadPool::waitForDone(int msecs)
{
    static auto* const next = original<bool(QThreadPool*, int)>("_ZN11QThreadPool11waitForDoneEi");
    const bool done = next(this, msecs);
    if (done)
        observe(this);
    return done;
}

/// Event loops wake each other through descriptors in ways that cannot be observed; the reason for
/// the call (an event, a signal, the end) is announced above.
extern "C" Q_DECL_EXPORT int eventfd_write(int descriptor, eventfd_t value)
{
    const long written = ::syscall(SYS_write, descriptor, &value, sizeof value);
    return written == static_cast<long>(sizeof value) ? 0 : -1;
}
