// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "host/HostSettings.h"
#include "Http2Front.h"
#include "PoolRun.h"

#include <QElapsedTimer>

namespace {

using Handler = FaultServer::Handler;

constexpr int number = 6;
const QStringList names = numbered(QStringLiteral("f"), number);

} // namespace

/// Tests transfers over HTTP/2, which nginx speaks.
class TestTransferPoolHttp2 : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup() { hostSettings() = m_settings; }

    void oneConnectionCarriesAll();
    void oneTransferAtATimeUsesHttp1();
    void bodyWithoutALengthIsComplete();
    void resetStreamIsRetried_data();
    void resetStreamIsRetried();
    void resetStreamFailsInTheEnd();
    void othersGoOn();
    void restOfAResetStreamIsRequested();
    void unchangedFileIsNotSent();
    void statusesAreThoseOfHttp1_data();
    void statusesAreThoseOfHttp1();
    void cancelEndsStreams();
    void streamsBeyondTheServersLimitWait();
    void untrustedCertificateFailsAll();
    void serverWithoutHttp2GetsConnections();

private:
    void startAll(PoolRun& run, const Http2Front& front, const QString& folder);

    const HostSettings m_settings = hostSettings();
    std::unique_ptr<SelfSignedCertificate> m_certificate;
};

void TestTransferPoolHttp2::initTestCase()
{
    m_certificate = std::make_unique<SelfSignedCertificate>(QStringLiteral("IP:127.0.0.1"));
}

void TestTransferPoolHttp2::init()
{
    if (NginxServer::program().isEmpty())
        QSKIP("nginx is not installed");
    hostSettings().retryPauseMs = 10;
    hostSettings().caFile = m_certificate->file();
}

void TestTransferPoolHttp2::startAll(PoolRun& run, const Http2Front& front, const QString& folder)
{
    for (const QString& name : names)
        run.start(front.url(folder + QLatin1Char('/') + name), name);
}

/// All six are in flight before the first is answered.
void TestTransferPoolHttp2::oneConnectionCarriesAll()
{
    std::atomic<int> arrived{0};
    FaultServer back([&](HttpExchange& exchange) {
        ++arrived;
        holdUntil(exchange, [&] { return arrived >= number; });
        exchange.answer(HttpAnswer(200).body(pattern(100000)));
    });
    Http2Front front;
    QVERIFY(front.start(*m_certificate, back));
    PoolRun run(number);
    for (int round = 0; round < 3; ++round) {
        startAll(run, front, QStringLiteral("/back"));
        QVERIFY(run.finish());
        for (const QString& name : names) {
            QCOMPARE(run.result(name), 0);
            QCOMPARE(run.content(name), pattern(100000));
        }
    }
    QCOMPARE(back.requestCount(), 3 * number);
    QVERIFY(Http2Front::isHttp2(back));
    QCOMPARE(Http2Front::connectionCount(back), 1);
}

void TestTransferPoolHttp2::oneTransferAtATimeUsesHttp1()
{
    FaultServer back(answering(HttpAnswer(200).body("the file")));
    Http2Front front;
    QVERIFY(front.start(*m_certificate, back));
    PoolRun run(1);
    startAll(run, front, QStringLiteral("/back"));
    QVERIFY(run.finish());
    QCOMPARE(run.names(), names);
    QCOMPARE(Http2Front::values(back, "x-protocol"), QSet<QByteArray>{"HTTP/1.1"});
    QCOMPARE(Http2Front::connectionCount(back), 1);
}

/// nginx does not know the length of a file in which it looks for commands.
void TestTransferPoolHttp2::bodyWithoutALengthIsComplete()
{
    FaultServer back(answering(HttpAnswer(200).body("unused")));
    Http2Front front;
    QVERIFY(front.start(*m_certificate, back, QStringLiteral("ssi on; ssi_types *;")));
    PoolRun run(number);
    for (const QString& name : names)
        CatalogueFiles::write(front.tree() + QLatin1Char('/') + name,
                              QByteArray(5000, 'x') + name.toLatin1());
    startAll(run, front, QString());
    QVERIFY(run.finish());
    for (const QString& name : names) {
        QCOMPARE(run.result(name), 0);
        QCOMPARE(run.content(name), QByteArray(5000, 'x') + name.toLatin1());
    }
    QTRY_COMPARE(front.nginx().requests().size(), number);
    const QByteArrayList requests = front.nginx().requests();
    for (const QByteArray& request : requests)
        QVERIFY2(request.endsWith("HTTP/2.0 200"), request.constData());
}

void TestTransferPoolHttp2::resetStreamIsRetried_data()
{
    QTest::addColumn<Handler>("fault");

    const HttpAnswer chunks = HttpAnswer(200).field("Transfer-Encoding", "chunked");
    QTest::newRow("in a body with a length") << answeringAndClosing(
        HttpAnswer(200).field("Content-Length", "2000").bareBody(pattern(1000)));
    QTest::newRow("in a body without a length")
        << answeringAndClosing(HttpAnswer(chunks).bareBody(HttpAnswer::chunk(pattern(1000))));
}

void TestTransferPoolHttp2::resetStreamIsRetried()
{
    QFETCH(Handler, fault);

    FaultServer back(inTurn({fault, answering(HttpAnswer(200).body(pattern(2000)))}));
    Http2Front front;
    QVERIFY(front.start(*m_certificate, back));
    PoolRun run(number);
    run.start(front.url(QStringLiteral("/back/file")), QStringLiteral("file"));
    QVERIFY(run.finish());
    QCOMPARE(run.result(QStringLiteral("file")), 0);
    QCOMPARE(run.content(QStringLiteral("file")), pattern(2000));
    QCOMPARE(back.requestCount(), 2);
    QVERIFY(Http2Front::isHttp2(back));
}

void TestTransferPoolHttp2::resetStreamFailsInTheEnd()
{
    FaultServer back(answeringAndClosing(HttpAnswer(200)
                                             .field("Transfer-Encoding", "chunked")
                                             .bareBody(HttpAnswer::chunk(pattern(1000)))));
    Http2Front front;
    QVERIFY(front.start(*m_certificate, back));
    PoolRun run(number);
    run.start(front.url(QStringLiteral("/back/file")), QStringLiteral("file"));
    QVERIFY(run.finish());
    QCOMPARE(run.result(QStringLiteral("file")), 3);
    QCOMPARE(run.outcome(QStringLiteral("file")).m_failure.m_eCause, eFailure_ConnectionLost);
    QCOMPARE(back.requestCount(), 3);
    QVERIFY(run.files().isEmpty());
}

/// One stream is reset again and again while the others of its connection receive their bodies;
/// nginx sends a reset together with further data only.
void TestTransferPoolHttp2::othersGoOn()
{
    using namespace std::chrono_literals;
    std::atomic<bool> isOver{false};
    FaultServer back([&](HttpExchange& exchange) {
        exchange.answer(HttpAnswer(200).field("Transfer-Encoding", "chunked"));
        exchange.send(HttpAnswer::chunk("some "));
        if (exchange.request().target == "/back/f3") {
            exchange.close();
            return;
        }
        while (!isOver && exchange.isOpen()) {
            exchange.send(HttpAnswer::chunk("more "));
            exchange.pause(5ms);
        }
        exchange.send(HttpAnswer::chunk("bytes") + HttpAnswer::lastChunk());
    });
    Http2Front front;
    QVERIFY(front.start(*m_certificate, back));
    PoolRun run(number);
    startAll(run, front, QStringLiteral("/back"));
    QVERIFY(run.runUntil([&] { return run.result(QStringLiteral("f3")) == 3; }));
    QCOMPARE(run.names().size(), 1);
    isOver = true;
    QVERIFY(run.finish());
    for (const QString& name : names) {
        const bool isReset = name == QLatin1String("f3");
        QCOMPARE(run.result(name), isReset ? 3 : 0);
        QCOMPARE(back.requestCount("/back/" + name.toLatin1()), isReset ? 3 : 1);
        QCOMPARE(run.content(name).startsWith("some more "), !isReset);
        QCOMPARE(run.content(name).endsWith(" more bytes"), !isReset);
    }
    QCOMPARE(Http2Front::connectionCount(back), 1);
}

void TestTransferPoolHttp2::restOfAResetStreamIsRequested()
{
    const HttpAnswer half = HttpAnswer(200)
                                .field("ETag", "\"v1\"")
                                .field("Content-Length", "2000")
                                .bareBody(pattern(1000));
    FaultServer back(inTurn({answeringAndClosing(half), answering(HttpAnswer(200).body("other"))}));
    Http2Front front;
    QVERIFY(front.start(*m_certificate, back));
    PoolRun run(number);
    run.start(front.url(QStringLiteral("/back/file")), QStringLiteral("file"));
    QVERIFY(run.finish());
    QCOMPARE(back.requests().at(1).fields.value("if-range"), QByteArray("\"v1\""));
    QVERIFY(back.requests().at(1).fields.value("range").startsWith("bytes="));
    QCOMPARE(run.content(QStringLiteral("file")), QByteArray("other"));
}

void TestTransferPoolHttp2::unchangedFileIsNotSent()
{
    FaultServer back(answering(HttpAnswer(200).body("unused")));
    Http2Front front;
    QVERIFY(front.start(*m_certificate, back));
    CatalogueFiles::write(front.tree() + QStringLiteral("/file"), "the file");
    const QString name = QStringLiteral("file");
    PoolRun run(number);
    run.start(front.url(QStringLiteral("/file")), name);
    QVERIFY(run.finish());
    QVERIFY(!run.outcome(name).m_validators.m_etag.isEmpty());
    QVERIFY(!run.outcome(name).m_validators.m_lastModified.isEmpty());
    TransferPool::Job job = run.job(front.url(QStringLiteral("/file")), name);
    job.known = run.outcome(name).m_validators;
    run.pool().start(job);
    QVERIFY(run.finish());
    QVERIFY(run.outcome(name).m_bNotModified);
    QCOMPARE(run.content(name), QByteArray("the file"));
}

void TestTransferPoolHttp2::statusesAreThoseOfHttp1_data()
{
    QTest::addColumn<Handler>("handler");
    QTest::addColumn<int>("result");

    QTest::newRow("not found") << answering(HttpAnswer(404).body("none")) << 4;
    QTest::newRow("unavailable") << answering(HttpAnswer(503).body("later")) << 4;
    QTest::newRow("too large") << answering(HttpAnswer(200).body(pattern(30000))) << 6;
    QTest::newRow("redirect to plain http")
        << answering(redirectTo("http://127.0.0.1:1/file")) << 1;
    QTest::newRow("empty file") << answering(HttpAnswer(200).body("")) << 0;
}

void TestTransferPoolHttp2::statusesAreThoseOfHttp1()
{
    QFETCH(Handler, handler);
    QFETCH(int, result);

    hostSettings().maxDownloadBytes = 20000;
    FaultServer back(handler);
    Http2Front front;
    QVERIFY(front.start(*m_certificate, back));
    PoolRun run(number);
    startAll(run, front, QStringLiteral("/back"));
    QVERIFY(run.finish());
    for (const QString& name : names)
        QCOMPARE(run.result(name), result);
    QVERIFY(Http2Front::isHttp2(back));
}

/// The connection lasts: the next transfers use it.
void TestTransferPoolHttp2::cancelEndsStreams()
{
    std::atomic<bool> isOver{false};
    FaultServer back([&](HttpExchange& exchange) {
        if (isOver)
            exchange.answer(HttpAnswer(200).body("the file"));
        else
            sendHalfAndStall(exchange);
    });
    Http2Front front;
    QVERIFY(front.start(*m_certificate, back));
    PoolRun run(number);
    startAll(run, front, QStringLiteral("/back"));
    QVERIFY(run.runUntil([&] { return back.requestCount() == number; }));
    QElapsedTimer timer;
    timer.start();
    run.pool().cancel();
    QVERIFY(run.finish());
    QVERIFY(timer.elapsed() < 1000);
    for (const QString& name : names)
        QCOMPARE(run.result(name), 5);
    QVERIFY(run.files().isEmpty());
    isOver = true;
    startAll(run, front, QStringLiteral("/back"));
    QVERIFY(run.finish());
    for (const QString& name : names)
        QCOMPARE(run.result(name), 0);
    QCOMPARE(Http2Front::connectionCount(back), 1);
}

void TestTransferPoolHttp2::streamsBeyondTheServersLimitWait()
{
    FaultServer back(answering(HttpAnswer(200).body(pattern(50000))));
    Http2Front front;
    QVERIFY(front.start(*m_certificate, back, QStringLiteral("http2_max_concurrent_streams 2;")));
    PoolRun run(number);
    startAll(run, front, QStringLiteral("/back"));
    QVERIFY(run.finish());
    for (const QString& name : names) {
        QCOMPARE(run.result(name), 0);
        QCOMPARE(run.content(name), pattern(50000));
    }
    QVERIFY(Http2Front::connectionCount(back) <= number);
}

void TestTransferPoolHttp2::untrustedCertificateFailsAll()
{
    FaultServer back(answering(HttpAnswer(200).body("the file")));
    Http2Front front;
    QVERIFY(front.start(*m_certificate, back));
    hostSettings().caFile.clear();
    PoolRun run(number);
    startAll(run, front, QStringLiteral("/back"));
    QVERIFY(run.finish());
    for (const QString& name : names)
        QCOMPARE(run.result(name), 3);
    QCOMPARE(back.requestCount(), 0);
}

void TestTransferPoolHttp2::serverWithoutHttp2GetsConnections()
{
    TlsServer server(*m_certificate);
    PoolRun run(number);
    for (int round = 0; round < 2; ++round) {
        for (const QString& name : names)
            run.start(server.url(QStringLiteral("/file")), name);
        QVERIFY(run.finish());
    }
    for (const QString& name : names) {
        QCOMPARE(run.result(name), 0);
        QCOMPARE(run.content(name), QByteArray("the secret file"));
    }
    QCOMPARE(server.requestCount(), 2 * number);
}

MV_TEST_MAIN(TestTransferPoolHttp2)
#include "tst_TransferPool_http2.moc"
