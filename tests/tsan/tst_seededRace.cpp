// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

// Programs with and without a data race on a file record, one per argument. They keep the
// ThreadSanitizer gate honest: races must be reported, correct code must not.

#include "records/SFileInfo.h"
#include "support/TestMain.h"

#include <QCoreApplication>
#include <QMutexLocker>
#include <QSemaphore>
#include <QThread>

#include <atomic>
#include <cstdio>
#include <functional>
#include <map>

namespace {

using Work = std::function<void()>;

/// Runs a piece of work, signals it, and reports it in a way that orders nothing.
class Worker : public QThread
{
    Q_OBJECT

public:
    explicit Worker(Work work)
        : m_work(std::move(work))
    {
    }
    ~Worker() override { wait(); }
    Q_DISABLE_COPY_MOVE(Worker)

    void spinUntilDone() const
    {
        while (!m_done.load(std::memory_order_relaxed))
            QThread::yieldCurrentThread();
    }

signals:
    void worked();

protected:
    void run() override
    {
        m_work();
        emit worked();
        m_done.store(true, std::memory_order_relaxed);
    }

private:
    Work m_work;
    std::atomic<bool> m_done{false};
};

/// An object on a thread with an event loop that runs the given function.
class Receiver : public QObject
{
    Q_OBJECT

public:
    explicit Receiver(Work work)
        : m_work(std::move(work))
    {
    }
    Q_DISABLE_COPY_MOVE(Receiver)

protected:
    bool event(QEvent* event) override
    {
        if (event->type() != QEvent::User)
            return QObject::event(event);
        m_work();
        thread()->quit();
        return true;
    }

private:
    Work m_work;
};

SFileInfo record;

void count()
{
    ++record.m_nReceived;
}

void runBoth(const Work& first, const Work& second)
{
    Worker one(first);
    Worker two(second);
    one.start();
    two.start();
}

void noLock()
{
    runBoth(count, count);
}

void otherLock()
{
    QMutex mutex;
    runBoth(
        [] {
            const QMutexLocker lock(record.m_pMutex.get());
            count();
        },
        [&mutex] {
            const QMutexLocker lock(&mutex);
            count();
        });
}

void guarded()
{
    const Work work = [] {
        const QMutexLocker lock(record.m_pMutex.get());
        count();
    };
    runBoth(work, work);
}

/// Signals to a third thread do not order the work of their senders.
void signalsOfTwo()
{
    Worker one(count);
    Worker two(count);
    int left = 2;
    const auto countDown = [&left] {
        if (--left == 0)
            QCoreApplication::quit();
    };
    QObject::connect(&one, &Worker::worked, qApp, countDown);
    QObject::connect(&two, &Worker::worked, qApp, countDown);
    one.start();
    two.start();
    QCoreApplication::exec();
}

void noWait()
{
    Worker worker(count);
    worker.start();
    worker.spinUntilDone();
    count();
}

void afterWait()
{
    count();
    Worker worker(count);
    worker.start();
    worker.wait();
    count();
}

void restarted()
{
    Worker worker(count);
    for (int run = 0; run < 20; ++run) {
        worker.start();
        while (worker.isRunning())
            QThread::yieldCurrentThread();
        count();
    }
}

void afterSemaphore()
{
    QSemaphore semaphore;
    Worker worker([&semaphore] {
        count();
        semaphore.release();
    });
    worker.start();
    semaphore.acquire();
    count();
}

void queuedSignal()
{
    Worker worker(count);
    QObject::connect(&worker, &Worker::worked, qApp, [] {
        count();
        QCoreApplication::quit();
    });
    worker.start();
    QCoreApplication::exec();
}

/// The receiver reads data written before and after the event was posted.
void eventTo(const Work& before, const Work& after)
{
    QThread thread;
    Receiver receiver(count);
    receiver.moveToThread(&thread);
    thread.start();
    before();
    QCoreApplication::postEvent(&receiver, new QEvent(QEvent::User)); // owned by the queue
    after();
    thread.wait();
}

void postedTooEarly()
{
    eventTo([] {}, count);
}

void posted()
{
    eventTo(count, [] {});
}

void invoked()
{
    QThread thread;
    Receiver receiver([] {});
    receiver.moveToThread(&thread);
    thread.start();
    count();
    QMetaObject::invokeMethod(&receiver, [&thread] {
        count();
        thread.quit();
    });
    thread.wait();
}

void deleted()
{
    QThread thread;
    auto* const receiver = new Receiver([] {}); // deletes itself
    QObject::connect(
        receiver, &QObject::destroyed, &thread,
        [&thread] {
            count();
            thread.quit();
        },
        Qt::DirectConnection);
    receiver->moveToThread(&thread);
    thread.start();
    count();
    receiver->deleteLater();
    thread.wait();
}

void afterQuit()
{
    QThread thread;
    auto* const receiver = new Receiver([] {}); // deleted at the thread's end
    QObject::connect(&thread, &QThread::finished, receiver, &QObject::deleteLater);
    QObject::connect(receiver, &QObject::destroyed, &thread, count, Qt::DirectConnection);
    receiver->moveToThread(&thread);
    thread.start();
    count();
    thread.quit();
    thread.wait();
}

const std::map<QByteArray, void (*)()> cases = {
    {"noLock", noLock},
    {"otherLock", otherLock},
    {"signals", signalsOfTwo},
    {"noWait", noWait},
    {"postedTooEarly", postedTooEarly},
    {"guarded", guarded},
    {"afterWait", afterWait},
    {"restarted", restarted},
    {"afterSemaphore", afterSemaphore},
    {"queuedSignal", queuedSignal},
    {"posted", posted},
    {"invoked", invoked},
    {"deleted", deleted},
    {"afterQuit", afterQuit},
};

} // namespace

int main(int argc, char** argv)
{
    const TestApplication<QCoreApplication> application(argc, argv);
    const auto found = argc == 2 ? cases.find(argv[1]) : cases.end();
    if (found == cases.end()) {
        std::fprintf(stderr, "which case?\n");
        return 2;
    }
    found->second();
    return 0;
}

#include "tst_seededRace.moc"
