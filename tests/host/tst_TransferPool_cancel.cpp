// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "host/HostSettings.h"
#include "PoolRun.h"
#include "SilentPort.h"

#include <algorithm>
#include <mutex>
#include <thread>

namespace tst_TransferPool_cancel {

using namespace std::chrono_literals;

namespace {

using Handler = FaultServer::Handler;
using Clock = std::chrono::steady_clock;

constexpr int longPauseMs = 60000;
constexpr int number = 6;
const QStringList names = numbered(QStringLiteral("f"), 2 * number); // half of them wait

/// Cancels in two ways, which end the same transfers.
enum class By { Cancel, Token };

/// Six busy transfers and as many that wait, which can be cancelled by another thread.
class BusyPool
{
public:
    explicit BusyPool(const Handler& handler)
        : m_server(handler)
    {
        for (const QString& name : names)
            m_run.start(m_server.url(QLatin1Char('/') + name), name);
    }

    /// Works until `requests` have come and `steps` more steps have been done.
    bool isBusyWith(int requests, int steps = 3)
    {
        if (!m_run.runUntil([&] { return m_server.requestCount() >= requests; }))
            return false;
        for (int i = 0; i < steps; ++i)
            m_run.pool().step();
        return m_run.pool().isBusy();
    }

    /// Cancels from a thread of its own while the pool works; returns the time until its end.
    std::chrono::milliseconds cancel(By by)
    {
        Clock::time_point begin;
        std::thread canceller([&] {
            begin = Clock::now();
            if (by == By::Token)
                m_token.cancel();
            else
                m_run.pool().cancel();
        });
        m_run.finish();
        const Clock::time_point end = Clock::now();
        canceller.join();
        return std::chrono::duration_cast<std::chrono::milliseconds>(end - begin);
    }

    FaultServer& server() { return m_server; }
    PoolRun& run() { return m_run; }

private:
    FaultServer m_server;
    CancelToken m_token;
    PoolRun m_run{number, m_token};
};

} // namespace

} // namespace tst_TransferPool_cancel

Q_DECLARE_METATYPE(tst_TransferPool_cancel::By)

namespace tst_TransferPool_cancel {

/// Tests the ways to end the transfers of a pool early.
class TestTransferPoolCancel : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup() { hostSettings() = m_settings; }

    void endsAll_data();
    void endsAll();
    void endsUnfinishedConnections_data();
    void endsUnfinishedConnections();
    void endsTransfersThatReceive();
    void cancelDoesNotOutlastTheTransfers();
    void cancelledTokenEndsLaterTransfers();
    void cancelWithoutATransferDoesNothing();
    void jobStartedAfterTheCancelRuns_data();
    void jobStartedAfterTheCancelRuns();
    void callbackMayCancel();
    void destroyingABusyPoolLeavesNothing_data();
    void destroyingABusyPoolLeavesNothing();

private:
    const HostSettings m_settings = hostSettings();
};

void TestTransferPoolCancel::init()
{
    hostSettings().stallTimeoutMs = longPauseMs;
    hostSettings().connectTimeoutMs = longPauseMs;
    hostSettings().retryPauseMs = longPauseMs;
    hostSettings().retryPauseMaxMs = longPauseMs;
}

void TestTransferPoolCancel::endsAll_data()
{
    QTest::addColumn<Handler>("handler");
    QTest::addColumn<By>("by");

    const QVector<QPair<const char*, Handler>> handlers = {
        {"stalled before the answer", [](HttpExchange& exchange) { exchange.stall(); }},
        {"stalled in the body", &sendHalfAndStall},
        {"pausing before a retry", answering(HttpAnswer(503).body("later"))},
        {"pausing after a reset", [](HttpExchange& exchange) { exchange.reset(); }},
    };
    for (const auto& [name, handler] : handlers) {
        QTest::addRow("%s, cancel()", name) << handler << By::Cancel;
        QTest::addRow("%s, token", name) << handler << By::Token;
    }
}

/// The machine may be busy with other tests, so the best of several rounds counts.
void TestTransferPoolCancel::endsAll()
{
    QFETCH(Handler, handler);
    QFETCH(By, by);

    std::chrono::milliseconds shortest = 1h;
    for (int round = 0; round < 5 && shortest >= 200ms; ++round) {
        BusyPool busy(handler);
        QVERIFY(busy.isBusyWith(number));
        shortest = std::min(shortest, busy.cancel(by));

        QVERIFY(!busy.run().pool().isBusy());
        const QStringList ended = busy.run().names();
        QCOMPARE(ended.size(), names.size());
        for (const QString& name : names) {
            QCOMPARE(busy.run().result(name), 5);
            QCOMPARE(busy.run().outcome(name).m_failure.m_eCause, eFailure_Cancelled);
        }
        // None of those that waited has been requested.
        QCOMPARE(busy.server().requestCount(), number);
        QVERIFY(busy.run().files().isEmpty());
    }
    QVERIFY2(shortest < 200ms, QByteArray::number(qint64(shortest.count())).constData());
}

void TestTransferPoolCancel::endsUnfinishedConnections_data()
{
    QTest::addColumn<QString>("scheme");
    QTest::newRow("TCP") << QStringLiteral("http");
    QTest::newRow("TLS") << QStringLiteral("https");
}

void TestTransferPoolCancel::endsUnfinishedConnections()
{
    QFETCH(QString, scheme);

    const bool isSecure = scheme == QLatin1String("https");
    if (!isSecure && !SilentPort::isPossible)
        QSKIP("This system refuses what it cannot queue.");
    const SilentPort silent;
    // Waits for the end of a request, which a TLS client never sends.
    FaultServer mute([](HttpExchange& exchange) { exchange.stall(); });
    const QString url = isSecure ? QStringLiteral("https://127.0.0.1:%1/file").arg(mute.port())
                                 : silent.url(QStringLiteral("/file"));
    PoolRun run(number);
    for (const QString& name : names)
        run.start(url, name);
    QVERIFY(run.runUntil([&] { return !isSecure || mute.connectionCount() > 0; }));
    for (int i = 0; i < 3; ++i)
        run.pool().step();
    const Clock::time_point begin = Clock::now();
    run.pool().cancel();
    QVERIFY(run.finish());
    QVERIFY(Clock::now() - begin < 1s);
    for (const QString& name : names)
        QCOMPARE(run.result(name), 5);
}

void TestTransferPoolCancel::endsTransfersThatReceive()
{
    BusyPool busy([](HttpExchange& exchange) {
        exchange.answer(HttpAnswer(200).field("Transfer-Encoding", "chunked"));
        const QByteArray chunk = HttpAnswer::chunk(pattern(50000));
        while (exchange.isOpen())
            exchange.send(chunk);
    });
    QVERIFY(busy.isBusyWith(number, 10));
    QVERIFY(busy.cancel(By::Cancel) < 2s);
    for (const QString& name : names)
        QCOMPARE(busy.run().result(name), 5);
    QCOMPARE(busy.server().requestCount(), number);
    QVERIFY(busy.run().files().isEmpty());
}

void TestTransferPoolCancel::cancelDoesNotOutlastTheTransfers()
{
    std::atomic<bool> isReleased{false};
    BusyPool busy([&](HttpExchange& exchange) {
        if (isReleased)
            exchange.answer(HttpAnswer(200).body("the file"));
        else
            sendHalfAndStall(exchange);
    });
    QVERIFY(busy.isBusyWith(number));
    busy.cancel(By::Cancel);
    isReleased = true;
    const QStringList again = numbered(QStringLiteral("again"), 10);
    for (const QString& name : again)
        busy.run().start(busy.server().url(QStringLiteral("/file")), name);
    QVERIFY(busy.run().finish());
    for (const QString& name : again) {
        QCOMPARE(busy.run().result(name), 0);
        QCOMPARE(busy.run().content(name), QByteArray("the file"));
    }
}

void TestTransferPoolCancel::cancelledTokenEndsLaterTransfers()
{
    FaultServer server(answering(HttpAnswer(200).body("the file")));
    CancelToken token;
    PoolRun run(2, token);
    run.start(server.url(QStringLiteral("/file")), QStringLiteral("before"));
    QVERIFY(run.finish());
    token.cancel();
    for (const QString& name : names)
        run.start(server.url(QStringLiteral("/file")), name);
    QVERIFY(run.finish());
    for (const QString& name : names)
        QCOMPARE(run.result(name), 5);
    QCOMPARE(server.requestCount(), 1);
    QCOMPARE(run.files(), QStringList{QStringLiteral("before")});
}

void TestTransferPoolCancel::cancelWithoutATransferDoesNothing()
{
    FaultServer server(answering(HttpAnswer(200).body("the file")));
    PoolRun run(2);
    run.pool().cancel();
    run.pool().step();
    run.start(server.url(QStringLiteral("/file")), QStringLiteral("a"));
    QVERIFY(run.finish());
    run.pool().cancel();
    run.start(server.url(QStringLiteral("/file")), QStringLiteral("b"));
    QVERIFY(run.finish());
    QCOMPARE(run.result(QStringLiteral("a")), 0);
    QCOMPARE(run.result(QStringLiteral("b")), 0);
}

void TestTransferPoolCancel::jobStartedAfterTheCancelRuns_data()
{
    QTest::addColumn<bool>("isByToken");
    QTest::newRow("cancel()") << false;
    QTest::newRow("token") << true;
}

/// Each end starts another job, while others that were cancelled too have not been reported yet.
void TestTransferPoolCancel::jobStartedAfterTheCancelRuns()
{
    QFETCH(bool, isByToken);

    FaultServer server([](HttpExchange& exchange) {
        if (exchange.request().target == "/stall")
            exchange.stall();
        exchange.answer(HttpAnswer(200).body("the file"));
    });
    CancelToken token;
    PoolRun run(number, token);
    for (const QString& name : names) {
        TransferPool::Job job = run.job(server.url(QStringLiteral("/stall")), name);
        job.ended = [&, name, ended = job.ended](const STransferOutcome& outcome) {
            ended(outcome);
            run.start(server.url(QStringLiteral("/file")), QStringLiteral("again-") + name);
        };
        run.pool().start(job);
    }
    QVERIFY(run.runUntil([&] { return server.requestCount() == number; }));
    if (isByToken)
        token.cancel();
    else
        run.pool().cancel();
    QVERIFY(run.finish());
    QCOMPARE(run.names().size(), 2 * names.size());
    for (const QString& name : names) {
        QCOMPARE(run.result(name), 5);
        QCOMPARE(run.result(QStringLiteral("again-") + name), isByToken ? 5 : 0);
    }
    QCOMPARE(server.requestCount("/stall"), number);
    QCOMPARE(server.requestCount("/file"), isByToken ? 0 : names.size());
}

void TestTransferPoolCancel::callbackMayCancel()
{
    FaultServer server([](HttpExchange& exchange) {
        if (exchange.request().target != "/first")
            exchange.stall();
        exchange.answer(HttpAnswer(200).body("the file"));
    });
    PoolRun run(number);
    for (const QString& name : names) {
        const QString target = QString::fromLatin1(name == names.first() ? "/first" : "/stall");
        TransferPool::Job job = run.job(server.url(target), name);
        if (name == names.first()) {
            job.ended = [&, ended = job.ended](const STransferOutcome& outcome) {
                ended(outcome);
                run.pool().cancel();
            };
        }
        run.pool().start(job);
    }
    QVERIFY(run.finish());
    QCOMPARE(run.names().size(), names.size());
    for (const QString& name : names)
        QCOMPARE(run.result(name), name == names.first() ? 0 : 5);
    QVERIFY(server.requestCount() <= number);
}

void TestTransferPoolCancel::destroyingABusyPoolLeavesNothing_data()
{
    endsAll_data();
}

void TestTransferPoolCancel::destroyingABusyPoolLeavesNothing()
{
    QFETCH(Handler, handler);
    QFETCH(By, by);

    FaultServer server(handler);
    PoolRun run(number);
    int calls = 0;
    bool isDestroyed = false;
    for (const QString& name : names) {
        TransferPool::Job job = run.job(server.url(QStringLiteral("/file")), name);
        job.progress = [&](qint64, qint64) {
            calls += isDestroyed;
            return true;
        };
        run.pool().start(job);
    }
    QVERIFY(run.runUntil([&] { return server.requestCount() >= number; }));
    for (int i = 0; i < 3; ++i)
        run.pool().step();
    QVERIFY(run.pool().isBusy());
    if (by == By::Cancel) // takes effect in step() only
        run.pool().cancel();
    isDestroyed = true;
    run.destroyPool();
    QCOMPARE(calls, 0);
    QVERIFY(run.names().isEmpty());
    QVERIFY(run.files().isEmpty());
    QCOMPARE(server.requestCount(), number);
}

MV_TEST_MAIN(TestTransferPoolCancel)

} // namespace tst_TransferPool_cancel

#include "tst_TransferPool_cancel.moc"
