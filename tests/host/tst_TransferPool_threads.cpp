// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "PoolRun.h"

#include <thread>

namespace tst_TransferPool_threads {

namespace {

constexpr int number = 6;

} // namespace

/// Tests pools that several threads use: each thread its own, except for cancel().
class TestTransferPoolThreads : public QObject
{
    Q_OBJECT

private slots:
    void poolsOnTwoThreads();
    void manyCancelsAtOnce();
};

void TestTransferPoolThreads::poolsOnTwoThreads()
{
    constexpr int filesEach = 60;
    const auto body = [](const QByteArray& target) {
        return pattern(20000, target.mid(2).toUInt());
    };
    FaultServer server([&](HttpExchange& exchange) {
        exchange.answer(HttpAnswer(200).body(body(exchange.request().target)));
    });
    const Download common;
    std::atomic<int> failures{0};
    std::vector<std::thread> threads;
    for (const char* prefix : {"/a", "/b"}) {
        threads.emplace_back([&, prefix] {
            TransferPool pool(number);
            int ended = 0;
            const QStringList names = numbered(QString::fromLatin1(prefix), filesEach);
            for (const QString& name : names) {
                TransferPool::Job job;
                job.url = server.url(name);
                job.file = common.folder() + name;
                job.ended = [&](const STransferOutcome& outcome) {
                    ++ended;
                    failures += outcome.m_eResult != eTransfer_Success;
                };
                pool.start(job);
            }
            while (pool.isBusy())
                pool.step();
            failures += ended != filesEach;
        });
    }
    for (std::thread& thread : threads)
        thread.join();
    QCOMPARE(failures.load(), 0);
    QVERIFY(server.connectionCount() <= 2 * number);
    const QStringList files = common.files();
    QCOMPARE(files.size(), 2 * filesEach);
    for (const QString& name : files) {
        QCOMPARE(CatalogueFiles::read(common.folder() + QLatin1Char('/') + name),
                 body('/' + name.toLatin1()));
    }
}

void TestTransferPoolThreads::manyCancelsAtOnce()
{
    const QStringList names = numbered(QStringLiteral("f"), 2 * number);
    FaultServer server([](HttpExchange& exchange) { exchange.stall(); });
    PoolRun run(number);
    std::atomic<bool> isOver{false};
    std::vector<std::thread> cancellers;
    for (int i = 0; i < 3; ++i) {
        cancellers.emplace_back([&] {
            while (!isOver)
                run.pool().cancel();
        });
    }
    for (int round = 0; round < 10; ++round) {
        for (const QString& name : names)
            run.start(server.url(QStringLiteral("/file")), name);
        QVERIFY(run.finish());
    }
    isOver = true;
    for (std::thread& canceller : cancellers)
        canceller.join();
    QCOMPARE(run.names().size(), 10 * names.size());
    for (const QString& name : names)
        QCOMPARE(run.result(name), 5);
}

MV_TEST_MAIN(TestTransferPoolThreads)

} // namespace tst_TransferPool_threads

#include "tst_TransferPool_threads.moc"
