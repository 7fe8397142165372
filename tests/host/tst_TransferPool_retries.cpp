// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "host/HostSettings.h"
#include "PoolRun.h"

#include <mutex>

namespace tst_TransferPool_retries {

/// Tests retries and resumption of transfers side by side: each has its own.
class TestTransferPoolRetries : public QObject
{
    Q_OBJECT

private slots:
    void init() { hostSettings().retryPauseMs = 10; }
    void cleanup() { hostSettings() = m_settings; }

    void eachIsRetriedOnItsOwn();
    void eachIsResumedOnItsOwn();
    void resumesThePresentFile();

private:
    const HostSettings m_settings = hostSettings();
};

/// Every transfer fails as often as its number says; two retries are allowed.
void TestTransferPoolRetries::eachIsRetriedOnItsOwn()
{
    std::mutex mutex; // guards failures
    QMap<QByteArray, int> failures;
    FaultServer server([&](HttpExchange& exchange) {
        const QByteArray target = exchange.request().target;
        const std::lock_guard<std::mutex> lock(mutex);
        if (failures[target]++ < target.right(1).toInt())
            exchange.answer(HttpAnswer(503).body("later"));
        else
            exchange.answer(HttpAnswer(200).body("the file"));
    });
    PoolRun run(6);
    for (int number = 0; number <= 4; ++number)
        run.start(server.url(QStringLiteral("/f%1").arg(number)), QString::number(number));
    QVERIFY(run.finish());
    const int expectedRequests[] = {1, 2, 3, 3, 3};
    for (int number = 0; number <= 4; ++number) {
        QCOMPARE(run.result(QString::number(number)), number <= 2 ? 0 : 4);
        QCOMPARE(server.requestCount("/f" + QByteArray::number(number)), expectedRequests[number]);
    }
}

void TestTransferPoolRetries::eachIsResumedOnItsOwn()
{
    const auto version = [](const QByteArray& target) {
        return pattern(1000, target.right(1).toUInt());
    };
    const auto tag = [](const QByteArray& target) { return "\"v" + target.right(1) + '"'; };
    FaultServer server([&](HttpExchange& exchange) {
        const QByteArray target = exchange.request().target;
        const int from = target.right(1).toInt() * 100;
        HttpAnswer answer(exchange.request().fields.contains("range") ? 206 : 200);
        answer.field("ETag", tag(target));
        if (!exchange.request().fields.contains("range")) {
            exchange.answer(
                answer.field("Content-Length", "1000").bareBody(version(target).left(from)));
            exchange.close();
            return;
        }
        exchange.answer(
            answer.field("Content-Range", "bytes " + QByteArray::number(from) + "-999/1000")
                .body(version(target).mid(from)));
    });
    PoolRun run(6);
    const QStringList names = numbered(QStringLiteral("f"), 6);
    for (const QString& name : names)
        run.start(server.url(QLatin1Char('/') + name), name);
    QVERIFY(run.finish());
    for (const QString& name : names) {
        const QByteArray target = '/' + name.toLatin1();
        QCOMPARE(run.result(name), 0);
        QCOMPARE(run.content(name), version(target));
        QCOMPARE(server.requestCount(target), 2);
        QCOMPARE(run.outcome(name).m_validators.m_etag, tag(target));
    }
    const QVector<HttpRequest> requests = server.requests();
    for (const HttpRequest& request : requests) {
        if (!request.fields.contains("range"))
            continue;
        QCOMPARE(request.fields.value("if-range"), tag(request.target));
        QCOMPARE(request.fields.value("range"), "bytes=" + request.target.right(1) + "00-");
    }
}

void TestTransferPoolRetries::resumesThePresentFile()
{
    FaultServer server([](HttpExchange& exchange) {
        const bool isPart = exchange.request().fields.contains("range");
        exchange.answer(isPart ? HttpAnswer(206)
                                     .field("Last-Modified", "Wed, 21 Oct 2015 07:28:00 GMT")
                                     .field("Content-Range", "bytes 400-999/1000")
                                     .body(pattern(1000).mid(400))
                               : HttpAnswer(200).body(pattern(1000)));
    });
    PoolRun run(2);
    CatalogueFiles::write(run.path(QStringLiteral("part")), pattern(400));
    CatalogueFiles::write(run.path(QStringLiteral("whole")), pattern(400));
    TransferPool::Job job = run.job(server.url(QStringLiteral("/part")), QStringLiteral("part"));
    job.resume = true;
    run.pool().start(job);
    run.start(server.url(QStringLiteral("/whole")), QStringLiteral("whole"));
    QVERIFY(run.finish());
    QCOMPARE(run.content(QStringLiteral("part")), pattern(1000));
    QCOMPARE(run.content(QStringLiteral("whole")), pattern(1000));
    const QVector<HttpRequest> requests = server.requests();
    for (const HttpRequest& request : requests)
        QCOMPARE(request.fields.contains("range"), request.target == "/part");
}

MV_TEST_MAIN(TestTransferPoolRetries)

} // namespace tst_TransferPool_retries

#include "tst_TransferPool_retries.moc"
