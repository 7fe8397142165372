// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "host/HostSettings.h"
#include "PoolRun.h"

#include <QElapsedTimer>

#include <algorithm>

namespace {

/// Counts the requests that are being answered, and answers them in groups: each waits until as
/// many have come as are expected at a time.
class Groups
{
public:
    explicit Groups(int size)
        : m_size(size)
    {
    }

    FaultServer::Handler handler()
    {
        return [this](HttpExchange& exchange) {
            const int groupEnd = (m_arrived++ / m_size + 1) * m_size;
            const int present = ++m_present;
            int peak = m_peak;
            while (peak < present && !m_peak.compare_exchange_weak(peak, present)) { }
            holdUntil(exchange, [&] { return m_arrived >= groupEnd; });
            --m_present;
            exchange.answer(HttpAnswer(200).body(exchange.request().target));
        };
    }
    int peak() const { return m_peak; }

private:
    const int m_size;
    std::atomic<int> m_arrived{0};
    std::atomic<int> m_present{0};
    std::atomic<int> m_peak{0};
};

QByteArrayList targets(const FaultServer& server)
{
    QByteArrayList targets;
    const QVector<HttpRequest> requests = server.requests();
    for (const HttpRequest& request : requests)
        targets.append(request.target);
    return targets;
}

} // namespace

/// Tests how many transfers a pool runs at a time, and in which order.
class TestTransferPoolOrder : public QObject
{
    Q_OBJECT

private slots:
    void cleanup() { hostSettings() = m_settings; }

    void runsAsManyAsAsked_data();
    void runsAsManyAsAsked();
    void runsAtLeastOne_data();
    void runsAtLeastOne();
    void waitingJobsBeginInOrder();
    void oneAtATimeKeepsTheOrder();
    void knowsItsRoom();
    void endIsReportedOnce();
    void endMayStartAnother();
    void endMayStartMoreThanFit();
    void progressMayStartAnother();
    void reportsProgressOfEach();
    void nothingIsCalledOutsideOfStep();
    void connectionsAreReused();
    void stepWithoutAJobReturns();

private:
    const HostSettings m_settings = hostSettings();
};

void TestTransferPoolOrder::runsAsManyAsAsked_data()
{
    QTest::addColumn<int>("number");
    for (const int number : {1, 2, 3, 6, 32})
        QTest::addRow("%d", number) << number;
}

void TestTransferPoolOrder::runsAsManyAsAsked()
{
    QFETCH(int, number);

    Groups groups(number);
    FaultServer server(groups.handler());
    PoolRun run(number);
    const QStringList names = numbered(QStringLiteral("f"), 3 * number);
    for (const QString& name : names)
        run.start(server.url(QLatin1Char('/') + name), name);
    QVERIFY(run.finish());

    QCOMPARE(groups.peak(), number);
    QCOMPARE(server.connectionCount(), number);
    QCOMPARE(server.requestCount(), names.size());
    for (const QString& name : names) {
        QCOMPARE(run.result(name), 0);
        QCOMPARE(run.content(name), '/' + name.toLatin1());
    }
    QCOMPARE(run.files().size(), names.size());
}

void TestTransferPoolOrder::runsAtLeastOne_data()
{
    QTest::addColumn<int>("number");
    QTest::newRow("none") << 0;
    QTest::newRow("negative") << -3;
}

void TestTransferPoolOrder::runsAtLeastOne()
{
    QFETCH(int, number);

    Groups groups(1);
    FaultServer server(groups.handler());
    PoolRun run(number);
    for (const char* name : {"a", "b"})
        run.start(server.url(QStringLiteral("/file")), QString::fromLatin1(name));
    QVERIFY(run.finish());
    QCOMPARE(groups.peak(), 1);
    QCOMPARE(run.names(), QStringList({QStringLiteral("a"), QStringLiteral("b")}));
}

/// Of two transfers one lasts, so the jobs that wait run one after the other in the place of the
/// other.
void TestTransferPoolOrder::waitingJobsBeginInOrder()
{
    const QStringList names = numbered(QStringLiteral("f"), 8);
    std::atomic<bool> isReleased{false};
    FaultServer server([&](HttpExchange& exchange) {
        if (exchange.request().target == "/long")
            holdUntil(exchange, [&] { return isReleased.load(); });
        exchange.answer(HttpAnswer(200).body("the file"));
    });
    PoolRun run(2);
    run.start(server.url(QStringLiteral("/long")), QStringLiteral("long"));
    QVERIFY(run.runUntil([&] { return server.requestCount() == 1; }));
    for (const QString& name : names)
        run.start(server.url(QLatin1Char('/') + name), name);
    QVERIFY(run.runUntil([&] { return run.names().size() == names.size(); }));
    QCOMPARE(run.names(), names);
    isReleased = true;
    QVERIFY(run.finish());

    QByteArrayList expected{"/long"};
    for (const QString& name : names)
        expected.append('/' + name.toLatin1());
    QCOMPARE(targets(server), expected);
    QCOMPARE(run.names().constLast(), QStringLiteral("long"));
    QCOMPARE(server.connectionCount(), 2);
}

void TestTransferPoolOrder::oneAtATimeKeepsTheOrder()
{
    FaultServer server([](HttpExchange& exchange) {
        const bool isMissing = exchange.request().target == "/f3";
        exchange.answer(HttpAnswer(isMissing ? 404 : 200).body("the file"));
    });
    PoolRun run(1);
    const QStringList names = numbered(QStringLiteral("f"), 6);
    for (const QString& name : names)
        run.start(server.url(QLatin1Char('/') + name), name);
    QVERIFY(run.finish());
    QCOMPARE(run.names(), names);
    QCOMPARE(run.result(QStringLiteral("f3")), 4);
    QCOMPARE(server.connectionCount(), 1);
}

void TestTransferPoolOrder::knowsItsRoom()
{
    FaultServer server(answering(HttpAnswer(200).body("the file")));
    const QString url = server.url(QStringLiteral("/file"));
    PoolRun run(2);
    QVERIFY(run.pool().hasRoom() && !run.pool().isBusy());
    run.start(url, QStringLiteral("a"));
    QVERIFY(run.pool().hasRoom() && run.pool().isBusy());
    run.start(url, QStringLiteral("b"));
    QVERIFY(!run.pool().hasRoom());
    run.start(url, QStringLiteral("c"));
    QVERIFY(!run.pool().hasRoom());
    QVERIFY(run.finish());
    QVERIFY(run.pool().hasRoom() && !run.pool().isBusy());
}

void TestTransferPoolOrder::endIsReportedOnce()
{
    FaultServer server([](HttpExchange& exchange) {
        if (exchange.request().target.startsWith("/reset"))
            exchange.reset();
        else
            exchange.answer(HttpAnswer(exchange.request().target == "/none" ? 404 : 200).body("f"));
    });
    hostSettings().downloadRetries = 0;
    PoolRun run(3);
    const QStringList urls = {
        server.url(QStringLiteral("/good")),  server.url(QStringLiteral("/none")),
        server.url(QStringLiteral("/reset")), QStringLiteral("ftp://127.0.0.1/file"),
        QStringLiteral("nonsense"),           server.url(QStringLiteral("/good2"))};
    const QStringList names = numbered(QStringLiteral("f"), urls.size());
    for (int i = 0; i < urls.size(); ++i)
        run.start(urls.at(i), names.at(i));
    QVERIFY(run.finish());
    for (int i = 0; i < 5; ++i)
        run.pool().step();
    QStringList ended = run.names();
    std::sort(ended.begin(), ended.end());
    QCOMPARE(ended, names);
    const int expected[] = {0, 4, 3, 1, 1, 0};
    for (int i = 0; i < urls.size(); ++i)
        QCOMPARE(run.result(names.at(i)), expected[i]);
    QCOMPARE(run.files(), QStringList({names.first(), names.last()}));
}

void TestTransferPoolOrder::endMayStartAnother()
{
    FaultServer server(answering(HttpAnswer(200).body("the file")));
    PoolRun run(1);
    constexpr int length = 20;
    std::function<void(int)> startChain = [&](int number) {
        TransferPool::Job job =
            run.job(server.url(QStringLiteral("/file")), QStringLiteral("f%1").arg(number));
        job.ended = [ended = job.ended, number, &startChain](const STransferOutcome& outcome) {
            ended(outcome);
            if (number < length)
                startChain(number + 1);
        };
        run.pool().start(job);
    };
    startChain(1);
    QVERIFY(run.finish());
    QCOMPARE(run.names(), numbered(QStringLiteral("f"), length));
    QCOMPARE(server.connectionCount(), 1);
}

/// Several end in one step, and each starts several.
void TestTransferPoolOrder::endMayStartMoreThanFit()
{
    Groups groups(3);
    FaultServer server(groups.handler());
    const QString url = server.url(QStringLiteral("/file"));
    PoolRun run(3);
    const QStringList first = numbered(QStringLiteral("f"), 3);
    QStringList expected;
    for (const QString& name : first) {
        const QStringList second = numbered(name + QLatin1Char('-'), 5);
        expected += second;
        TransferPool::Job job = run.job(url, name);
        job.ended = [&run, url, second](const STransferOutcome&) {
            for (const QString& next : second)
                run.start(url, next);
        };
        run.pool().start(job);
    }
    QVERIFY(run.finish());
    QStringList names = run.names();
    std::sort(names.begin(), names.end());
    QCOMPARE(names, expected);
    QCOMPARE(groups.peak(), 3);
    QCOMPARE(server.connectionCount(), 3);
}

/// The list of transfers grows while the pool asks each of them whether to continue.
void TestTransferPoolOrder::progressMayStartAnother()
{
    constexpr int number = 32;
    FaultServer server(answering(HttpAnswer(200).body("the file")));
    const QString url = server.url(QStringLiteral("/file"));
    const QStringList names = numbered(QStringLiteral("f"), number + 8);
    PoolRun run(number);
    TransferPool::Job job = run.job(url, QStringLiteral("first"));
    bool isStarted = false;
    job.progress = [&](qint64, qint64) {
        if (!std::exchange(isStarted, true)) {
            for (const QString& name : names)
                run.start(url, name);
        }
        return true;
    };
    run.pool().start(job);
    run.start(url, QStringLiteral("second"));
    QVERIFY(run.finish());
    QCOMPARE(run.names().size(), number + 10);
    QCOMPARE(run.files().size(), number + 10);
}

void TestTransferPoolOrder::reportsProgressOfEach()
{
    constexpr int size = 1000;
    std::atomic<bool> isReleased{false};
    FaultServer server([&](HttpExchange& exchange) {
        const int part = exchange.request().target.mid(1).toInt();
        exchange.answer(HttpAnswer(200)
                            .field("Content-Length", QByteArray::number(size))
                            .bareBody(pattern(size).left(part)));
        holdUntil(exchange, [&] { return isReleased.load(); });
        exchange.send(pattern(size).mid(part));
    });
    PoolRun run(6);
    QMap<int, QVector<QPair<qint64, qint64>>> calls;
    for (int part = 100; part <= 600; part += 100) {
        TransferPool::Job job =
            run.job(server.url(QStringLiteral("/%1").arg(part)), QString::number(part));
        job.progress = [&calls, part](qint64 received, qint64 total) {
            calls[part].append({received, total});
            return true;
        };
        run.pool().start(job);
    }
    const auto isThere = [&](int part) { return calls[part].count({part, size}) >= 2; };
    QVERIFY(run.runUntil([&] {
        return isThere(100) && isThere(200) && isThere(300) && isThere(400) && isThere(500)
            && isThere(600);
    }));
    isReleased = true;
    QVERIFY(run.finish());
    for (int part = 100; part <= 600; part += 100) {
        QCOMPARE(calls[part].last(), qMakePair(qint64{size}, qint64{size}));
        QCOMPARE(calls[part].count({size, size}), 1);
        QCOMPARE(run.content(QString::number(part)), pattern(size));
    }
}

void TestTransferPoolOrder::nothingIsCalledOutsideOfStep()
{
    FaultServer server(answering(HttpAnswer(200).body("the file")));
    PoolRun run(2);
    int calls = 0;
    const QStringList urls = {QStringLiteral("ftp://127.0.0.1/file"),
                              server.url(QStringLiteral("/file")),
                              server.url(QStringLiteral("/other"))};
    for (int i = 0; i < urls.size(); ++i) {
        TransferPool::Job job = run.job(urls.at(i), QString::number(i));
        job.progress = [&calls](qint64, qint64) { return ++calls > 0; };
        run.pool().start(job);
    }
    QCOMPARE(calls, 0);
    QVERIFY(run.names().isEmpty());
    QVERIFY(run.finish());
    QVERIFY(calls > 0);
    QCOMPARE(run.names().size(), 3);
}

/// All begin together and end one after the other, so that most connections are idle at the end.
void TestTransferPoolOrder::connectionsAreReused()
{
    constexpr int number = 6;
    std::atomic<int> arrived{0};
    std::atomic<int> ended{0};
    FaultServer server([&](HttpExchange& exchange) {
        const int before = arrived++;
        const int groupEnd = (before / number + 1) * number;
        holdUntil(exchange, [&] { return arrived >= groupEnd && ended >= before; });
        exchange.answer(HttpAnswer(200).body("the file"));
    });
    const QStringList names = numbered(QStringLiteral("f"), number);
    PoolRun run(number);
    for (int round = 0; round < 4; ++round) {
        for (const QString& name : names) {
            TransferPool::Job job = run.job(server.url(QStringLiteral("/file")), name);
            job.ended = [&ended](const STransferOutcome&) { ++ended; };
            run.pool().start(job);
        }
        QVERIFY(run.finish());
    }
    QCOMPARE(server.requestCount(), 4 * number);
    QCOMPARE(server.connectionCount(), number);
}

void TestTransferPoolOrder::stepWithoutAJobReturns()
{
    PoolRun run(3);
    QElapsedTimer timer;
    timer.start();
    for (int i = 0; i < 1000; ++i)
        run.pool().step();
    QVERIFY(timer.elapsed() < 10000);
}

MV_TEST_MAIN(TestTransferPoolOrder)
#include "tst_TransferPool_order.moc"
