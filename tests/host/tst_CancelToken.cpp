// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "host/CancelToken.h"
#include "support/TestMain.h"

#include <QElapsedTimer>

#include <atomic>
#include <thread>
#include <vector>

using namespace std::chrono_literals;

/// Tests the token that tells an operation's workers to stop.
class tst_CancelToken : public QObject
{
    Q_OBJECT

private slots:
    void isNotCancelledAtFirst();
    void staysCancelled();
    void copiesAreTheSameToken();
    void newTokenIsAnotherOne();
    void waitingEndsWithTheTime();
    void waitingEndsWithTheCancellation();
    void waitingForACancelledTokenEndsAtOnce();
    void everyWaitingThreadIsWoken();
    void outlivesItsCreator();
};

namespace {

constexpr auto longTime = 60s;
constexpr qint64 promptMs = 5000;

} // namespace

void tst_CancelToken::isNotCancelledAtFirst()
{
    QVERIFY(!CancelToken().isCancelled());
}

void tst_CancelToken::staysCancelled()
{
    CancelToken token;
    token.cancel();
    QVERIFY(token.isCancelled());
    token.cancel();
    QVERIFY(token.isCancelled());
}

void tst_CancelToken::copiesAreTheSameToken()
{
    CancelToken token;
    const CancelToken copy = token;
    CancelToken assigned;
    assigned = token;
    token.cancel();
    QVERIFY(copy.isCancelled());
    QVERIFY(assigned.isCancelled());
}

void tst_CancelToken::newTokenIsAnotherOne()
{
    CancelToken token;
    const CancelToken earlier = token;
    token.cancel();
    token = CancelToken();
    QVERIFY(!token.isCancelled());
    QVERIFY(earlier.isCancelled());
}

void tst_CancelToken::waitingEndsWithTheTime()
{
    const CancelToken token;
    QElapsedTimer timer;
    timer.start();
    QVERIFY(!token.waitFor(20ms));
    QVERIFY(timer.elapsed() >= 19);
}

void tst_CancelToken::waitingEndsWithTheCancellation()
{
    CancelToken token;
    std::atomic<bool> cancelled{false};
    std::thread waiting([&] { cancelled = token.waitFor(longTime); });
    QElapsedTimer timer;
    timer.start();
    token.cancel();
    waiting.join();
    QVERIFY(cancelled);
    QVERIFY(timer.elapsed() < promptMs);
}

void tst_CancelToken::waitingForACancelledTokenEndsAtOnce()
{
    CancelToken token;
    token.cancel();
    QElapsedTimer timer;
    timer.start();
    QVERIFY(token.waitFor(longTime));
    QVERIFY(timer.elapsed() < promptMs);
}

void tst_CancelToken::everyWaitingThreadIsWoken()
{
    CancelToken token;
    std::atomic<int> woken{0};
    std::vector<std::thread> threads;
    for (int i = 0; i < 8; ++i)
        threads.emplace_back([&, copy = token] { woken += copy.waitFor(longTime) ? 1 : 0; });
    token.cancel();
    for (std::thread& thread : threads)
        thread.join();
    QCOMPARE(woken.load(), 8);
}

void tst_CancelToken::outlivesItsCreator()
{
    std::vector<CancelToken> copies;
    {
        CancelToken token;
        copies.push_back(token);
        token.cancel();
    }
    QVERIFY(copies.front().isCancelled());
}

MV_TEST_MAIN(tst_CancelToken)

#include "tst_CancelToken.moc"
