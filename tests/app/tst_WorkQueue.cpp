// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "support/TestMain.h"
#include "support/TestTexts.h"
#include "WorkQueue.h"

#include <QSemaphore>
#include <QThread>

#include <atomic>
#include <memory>

/// Tests the order of jobs, and which of them give way.
class tst_WorkQueue : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void workRunsOnAnotherThread();
    void jobsRunInOrder();
    void jobWithoutWorkEndsAtOnce();
    void yieldingJobIsCancelledForOthers();
    void yieldingJobWaitsBehindOthers();
    void functionRunsAtOnceWhileNothingWorks();
    void functionWaitsForTheWork();
    void jobsMayBeAddedByCallbacks();
    void workIsDestroyedBeforeItsEndIsTold();
    void shutDownWaitsAndDropsTheRest();

private:
    /// Adds a job that notes its name when it ends, "!" for a cancelled one, and runs `work`.
    void add(const QString& name, const WorkQueue::Work& work, bool isYielding = false);

    QStringList m_ended;
    std::unique_ptr<WorkQueue> m_queue;
};

void tst_WorkQueue::init()
{
    m_ended.clear();
    m_queue = std::make_unique<WorkQueue>(nullptr);
}

void tst_WorkQueue::add(const QString& name, const WorkQueue::Work& work, bool isYielding)
{
    WorkQueue::Job job;
    job.isYielding = isYielding;
    job.prepare = [work](const CancelToken&) { return work; };
    job.ended = [this, name](bool isCancelled) {
        m_ended.append(isCancelled ? name + text("!") : name);
    };
    m_queue->add(job);
}

void tst_WorkQueue::workRunsOnAnotherThread()
{
    const QThread* worker = nullptr;
    add(text("a"), [&] { worker = QThread::currentThread(); });
    QTRY_COMPARE(m_ended, QStringList{text("a")});
    QVERIFY(worker && worker != QThread::currentThread());
}

void tst_WorkQueue::jobsRunInOrder()
{
    for (const char* name : {"a", "b", "c"})
        add(text(name), [] {});
    QTRY_COMPARE(m_ended, (QStringList{text("a"), text("b"), text("c")}));
}

void tst_WorkQueue::jobWithoutWorkEndsAtOnce()
{
    add(text("a"), {});
    QCOMPARE(m_ended, QStringList{text("a")});
}

void tst_WorkQueue::yieldingJobIsCancelledForOthers()
{
    WorkQueue::Job job;
    job.isYielding = true;
    job.prepare = [](const CancelToken& cancel) {
        return [cancel] {
            while (!cancel.isCancelled())
                QThread::yieldCurrentThread();
        };
    };
    job.ended = [this](bool isCancelled) {
        m_ended.append(isCancelled ? text("look!") : text("look"));
    };
    m_queue->add(job);
    add(text("a"), [] {});
    QTRY_COMPARE(m_ended, (QStringList{text("look!"), text("a")}));
}

void tst_WorkQueue::yieldingJobWaitsBehindOthers()
{
    QSemaphore go;
    add(text("a"), [&] { go.acquire(); });
    add(
        text("look"), [] {}, true);
    add(text("b"), [] {});
    go.release();
    QTRY_COMPARE(m_ended, (QStringList{text("a"), text("b"), text("look")}));
}

void tst_WorkQueue::functionRunsAtOnceWhileNothingWorks()
{
    bool isCalled = false;
    m_queue->runAlone([&] { isCalled = true; });
    QVERIFY(isCalled);
}

void tst_WorkQueue::functionWaitsForTheWork()
{
    QSemaphore go;
    add(text("a"), [&] { go.acquire(); });
    QStringList endedBefore;
    bool isCalled = false;
    m_queue->runAlone([&] {
        isCalled = true;
        endedBefore = m_ended;
    });
    QVERIFY(!isCalled);
    go.release();
    QTRY_VERIFY(isCalled);
    QCOMPARE(endedBefore, QStringList{text("a")});
}

void tst_WorkQueue::jobsMayBeAddedByCallbacks()
{
    m_queue->runAlone([this] { add(text("a"), [] {}); });
    add(text("b"), [] {});
    QTRY_COMPARE(m_ended, (QStringList{text("a"), text("b")}));
}

void tst_WorkQueue::workIsDestroyedBeforeItsEndIsTold()
{
    auto held = std::make_shared<int>(1);
    const std::weak_ptr<int> watched = held;
    bool isGone = false;
    bool isEnded = false;
    WorkQueue::Job job;
    job.prepare = [held](const CancelToken&) mutable { return [held = std::move(held)] {}; };
    job.ended = [&](bool) {
        isGone = watched.expired();
        isEnded = true;
    };
    held.reset();
    m_queue->add(std::move(job));
    QTRY_VERIFY(isEnded);
    QVERIFY(isGone);
}

void tst_WorkQueue::shutDownWaitsAndDropsTheRest()
{
    std::atomic<bool> isOver{false};
    WorkQueue::Job job;
    job.prepare = [&](const CancelToken& cancel) {
        return [&isOver, cancel] {
            while (!cancel.isCancelled())
                QThread::yieldCurrentThread();
            isOver = true;
        };
    };
    job.ended = [this](bool) { m_ended.append(text("a")); };
    m_queue->add(job);
    add(text("b"), [] {});
    m_queue->shutDown();
    QVERIFY(isOver);
    add(text("c"), [] {});
    QCoreApplication::processEvents();
    QCOMPARE(m_ended, QStringList());
}

MV_TEST_MAIN(tst_WorkQueue)
#include "tst_WorkQueue.moc"
