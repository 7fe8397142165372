// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "host/ContentDigest.h"
#include "host/HostSettings.h"
#include "PoolRun.h"

#include <QVector>

namespace tst_TransferPool_published {

namespace {

const QString name = QStringLiteral("file.bin");
const QByteArray wanted = pattern(5000);
const QByteArray other = wanted.left(4999) + '!';

SPublishedContent publishedAs(const QByteArray& content)
{
    return {ContentDigest::ofBytes(content), content.size()};
}

HttpAnswer ok(const QByteArray& body)
{
    return HttpAnswer(200).body(body);
}

} // namespace

/// Tests transfers that accept only the content that a publisher has announced.
class TestTransferPoolPublished : public QObject
{
    Q_OBJECT

private slots:
    void init() { hostSettings().retryPauseMs = 10; }
    void cleanup() { hostSettings() = m_settings; }

    void announcedContentIsStored_data();
    void announcedContentIsStored();
    void otherContentIsRequestedOnceMorePastCaches_data();
    void otherContentIsRequestedOnceMorePastCaches();
    void largeFileIsHashedAgainFromItsBeginning();
    void lastByteOfALargeFileIsHashedAlone();
    void cancelledLargeFileEnds();
    void freshContentBehindAStaleCacheIsStored();
    void endlessBodyEndsAtTheAnnouncedSize();
    void brokenBodyIsContinuedAndHashedAsAWhole();
    void resumedFileIsHashedFromItsBeginning();
    void contentAddressComesFirst();
    void nameIsRequestedWhereTheServerHasNoContents();
    void contentByNameMustMatchToo();
    void failureOfTheContentAddressIsNotHidden();
    void redirectOfTheContentAddressIsResolvedAgainstIt();
    void announcedPageIsStored();
    void portalsPageIsToldAsSuch();

private:
    static void fetch(PoolRun& run, const QString& url, const QByteArray& content,
                      const QString& contentUrl = QString());

    const HostSettings m_settings = hostSettings();
};

void TestTransferPoolPublished::fetch(PoolRun& run, const QString& url, const QByteArray& content,
                                      const QString& contentUrl)
{
    TransferPool::Job job = run.job(url, name);
    job.published = publishedAs(content);
    job.contentUrl = contentUrl;
    run.pool().start(job);
    QVERIFY(run.finish());
}

void TestTransferPoolPublished::announcedContentIsStored_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("one byte") << QByteArray("x");
    QTest::newRow("several buffers") << pattern(300000);
    QTest::newRow("hashed on a thread of its own") << pattern(9 * 1000 * 1000);
}

void TestTransferPoolPublished::announcedContentIsStored()
{
    QFETCH(QByteArray, content);
    const FaultServer server([&](HttpExchange& exchange) { exchange.answer(ok(content)); });
    PoolRun run(1);
    fetch(run, server.url(QStringLiteral("/file.bin")), content);
    QCOMPARE(run.result(name), int(eTransfer_Success));
    QCOMPARE(run.content(name), content);
    QCOMPARE(server.requestCount(), 1);
}

void TestTransferPoolPublished::otherContentIsRequestedOnceMorePastCaches_data()
{
    QTest::addColumn<QByteArray>("sent");
    QTest::newRow("of the same size") << other;
    QTest::newRow("shorter") << wanted.left(4000);
    QTest::newRow("longer") << wanted + "more";
    QTest::newRow("empty") << QByteArray();
}

void TestTransferPoolPublished::otherContentIsRequestedOnceMorePastCaches()
{
    QFETCH(QByteArray, sent);
    const FaultServer server([&](HttpExchange& exchange) { exchange.answer(ok(sent)); });
    PoolRun run(1);
    CatalogueFiles::write(run.path(name), "present");
    fetch(run, server.url(QStringLiteral("/file.bin")), wanted);
    QVERIFY(run.outcome(name).m_failure.isFailure());
    QCOMPARE(run.content(name), QByteArray("present"));
    QCOMPARE(run.files(), QStringList{name});
    QCOMPARE(server.requestCount(), 2);
    QVERIFY(!server.requests().at(0).fields.contains("cache-control"));
    QCOMPARE(server.requests().at(1).fields.value("cache-control"), QByteArray("no-cache"));
    QCOMPARE(run.result(name), int(eTransfer_NotPublished));
    QCOMPARE(run.outcome(name).m_failure.m_eCause, eFailure_Damaged);
    QVERIFY(run.outcome(name).m_failure.m_qsDetails.contains(
        QLatin1String("the content is not the published one")));
}

void TestTransferPoolPublished::largeFileIsHashedAgainFromItsBeginning()
{
    const QByteArray large = pattern(6 * 1000 * 1000);
    int number = 0;
    const FaultServer server([&](HttpExchange& exchange) {
        exchange.answer(ok(++number == 1 ? large.left(5 * 1000 * 1000) : large));
    });
    PoolRun run(1);
    fetch(run, server.url(QStringLiteral("/file.bin")), large);
    QCOMPARE(run.result(name), int(eTransfer_Success));
    QCOMPARE(run.content(name), large);
}

/// It comes when all others have been hashed.
void TestTransferPoolPublished::lastByteOfALargeFileIsHashedAlone()
{
    const QByteArray large = pattern(5 * 1024 * 1024);
    FaultServer server([&large](HttpExchange& exchange) {
        exchange.send(HttpAnswer(200)
                          .field("Content-Length", QByteArray::number(large.size()))
                          .bareBody(large.left(large.size() - 1))
                          .bytes());
        exchange.pause(std::chrono::milliseconds(150));
        exchange.send(large.right(1));
    });
    PoolRun run(1);
    fetch(run, server.url(QStringLiteral("/file")), large);
    QCOMPARE(run.result(name), int(eTransfer_Success));
    QCOMPARE(run.content(name), large);
}

void TestTransferPoolPublished::cancelledLargeFileEnds()
{
    const FaultServer server([](HttpExchange& exchange) {
        exchange.answer(
            HttpAnswer(200).field("Content-Length", "20000000").bareBody(pattern(6 * 1000 * 1000)));
        exchange.stall();
    });
    PoolRun run(1);
    TransferPool::Job job = run.job(server.url(QStringLiteral("/file.bin")), name);
    job.published = {ContentDigest::ofBytes("x"), 20000000};
    job.progress = [](qint64 received, qint64) { return received < 6 * 1000 * 1000; };
    run.pool().start(job);
    QVERIFY(run.finish());
    QCOMPARE(run.result(name), int(eTransfer_Cancelled));
    QCOMPARE(run.files(), QStringList());
}

void TestTransferPoolPublished::freshContentBehindAStaleCacheIsStored()
{
    const FaultServer server([](HttpExchange& exchange) {
        const bool isForced = exchange.request().fields.value("cache-control") == "no-cache";
        exchange.answer(ok(isForced ? wanted : other));
    });
    PoolRun run(1);
    fetch(run, server.url(QStringLiteral("/file.bin")), wanted);
    QCOMPARE(run.result(name), int(eTransfer_Success));
    QCOMPARE(run.content(name), wanted);
}

void TestTransferPoolPublished::endlessBodyEndsAtTheAnnouncedSize()
{
    const FaultServer server([](HttpExchange& exchange) {
        exchange.answer(HttpAnswer(200).field("Transfer-Encoding", "chunked"));
        while (exchange.isOpen())
            exchange.send(HttpAnswer::chunk(wanted));
    });
    PoolRun run(1);
    fetch(run, server.url(QStringLiteral("/file.bin")), wanted);
    QCOMPARE(run.result(name), int(eTransfer_NotPublished));
    QCOMPARE(run.files(), QStringList());
}

void TestTransferPoolPublished::brokenBodyIsContinuedAndHashedAsAWhole()
{
    const FaultServer server([](HttpExchange& exchange) {
        const bool isRest = exchange.request().fields.contains("range");
        HttpAnswer answer(isRest ? 206 : 200);
        answer.field("ETag", "\"v1\"");
        if (isRest) {
            answer.field("Content-Range", "bytes 2000-4999/5000").body(wanted.mid(2000));
        } else {
            answer.field("Content-Length", "5000").bareBody(wanted.left(2000));
        }
        exchange.answer(answer);
        if (!isRest)
            exchange.close();
    });
    PoolRun run(1);
    fetch(run, server.url(QStringLiteral("/file.bin")), wanted);
    QCOMPARE(run.result(name), int(eTransfer_Success));
    QCOMPARE(run.content(name), wanted);
    QCOMPARE(server.requestCount(), 2);
}

void TestTransferPoolPublished::resumedFileIsHashedFromItsBeginning()
{
    const FaultServer server([](HttpExchange& exchange) {
        if (exchange.request().fields.contains("range")) {
            exchange.answer(HttpAnswer(206)
                                .field("Last-Modified", "Wed, 21 Oct 2015 07:28:00 GMT")
                                .field("Content-Range", "bytes 2000-4999/5000")
                                .body(wanted.mid(2000)));
        } else {
            exchange.answer(ok(wanted));
        }
    });
    PoolRun run(1);
    CatalogueFiles::write(run.path(name), wanted.left(2000));
    TransferPool::Job job = run.job(server.url(QStringLiteral("/file.bin")), name);
    job.published = publishedAs(wanted);
    job.resume = true;
    run.pool().start(job);
    QVERIFY(run.finish());
    QCOMPARE(run.result(name), int(eTransfer_Success));
    QCOMPARE(run.content(name), wanted);
    QCOMPARE(server.requestCount(), 1);
}

void TestTransferPoolPublished::contentAddressComesFirst()
{
    const FaultServer server([](HttpExchange& exchange) { exchange.answer(ok(wanted)); });
    PoolRun run(1);
    fetch(run, server.url(QStringLiteral("/file.bin")), wanted,
          server.url(QStringLiteral("/content")));
    QCOMPARE(run.result(name), int(eTransfer_Success));
    QCOMPARE(server.requestCount(), 1);
    QCOMPARE(server.requests().at(0).target, QByteArray("/content"));
}

void TestTransferPoolPublished::nameIsRequestedWhereTheServerHasNoContents()
{
    const FaultServer server([](HttpExchange& exchange) {
        const bool isContent = exchange.request().target == "/content";
        exchange.answer(isContent ? HttpAnswer(404).body("no") : ok(wanted));
    });
    PoolRun run(1);
    fetch(run, server.url(QStringLiteral("/file.bin")), wanted,
          server.url(QStringLiteral("/content")));
    QCOMPARE(run.result(name), int(eTransfer_Success));
    QCOMPARE(run.content(name), wanted);
    QCOMPARE(server.requestCount(), 2);
}

void TestTransferPoolPublished::contentByNameMustMatchToo()
{
    const FaultServer server([](HttpExchange& exchange) {
        const bool isContent = exchange.request().target == "/content";
        exchange.answer(isContent ? HttpAnswer(404).body("no") : ok(other));
    });
    PoolRun run(1);
    fetch(run, server.url(QStringLiteral("/file.bin")), wanted,
          server.url(QStringLiteral("/content")));
    QCOMPARE(run.result(name), int(eTransfer_NotPublished));
    QCOMPARE(run.files(), QStringList());
}

/// Only "the server does not have it" leads to the name.
void TestTransferPoolPublished::failureOfTheContentAddressIsNotHidden()
{
    const FaultServer server([](HttpExchange& exchange) {
        const bool isContent = exchange.request().target == "/content";
        exchange.answer(isContent ? HttpAnswer(403).body("no") : ok(wanted));
    });
    PoolRun run(1);
    fetch(run, server.url(QStringLiteral("/file.bin")), wanted,
          server.url(QStringLiteral("/content")));
    QCOMPARE(run.result(name), int(eTransfer_Status));
    QCOMPARE(server.requestCount(), 1);
    QCOMPARE(run.outcome(name).m_failure.m_qsUrl, server.url(QStringLiteral("/file.bin")));
}

void TestTransferPoolPublished::redirectOfTheContentAddressIsResolvedAgainstIt()
{
    const FaultServer server([](HttpExchange& exchange) {
        const bool isMoved = exchange.request().target == "/content/moved";
        exchange.answer(isMoved ? ok(wanted) : HttpAnswer(302).field("Location", "moved").body(""));
    });
    PoolRun run(1);
    fetch(run, server.url(QStringLiteral("/file.bin")), wanted,
          server.url(QStringLiteral("/content/first")));
    QCOMPARE(run.result(name), int(eTransfer_Success));
    QCOMPARE(server.requests().constLast().target, QByteArray("/content/moved"));
}

void TestTransferPoolPublished::announcedPageIsStored()
{
    const QByteArray page("<!DOCTYPE html><html></html>");
    const FaultServer server([&](HttpExchange& exchange) { exchange.answer(ok(page)); });
    PoolRun run(1);
    fetch(run, server.url(QStringLiteral("/file.bin")), page);
    QCOMPARE(run.result(name), int(eTransfer_Success));
}

void TestTransferPoolPublished::portalsPageIsToldAsSuch()
{
    const QByteArray page("<!DOCTYPE html><html></html>");
    const FaultServer server([&](HttpExchange& exchange) { exchange.answer(ok(page)); });
    PoolRun run(1);
    fetch(run, server.url(QStringLiteral("/file.bin")), wanted);
    QCOMPARE(run.result(name), int(eTransfer_Network));
    QVERIFY(run.outcome(name).m_failure.m_qsDetails.contains(QLatin1String("web page")));
}

MV_TEST_MAIN(TestTransferPoolPublished)

} // namespace tst_TransferPool_published

#include "tst_TransferPool_published.moc"
