// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "host/HostSettings.h"
#include "PoolRun.h"
#include "SilentPort.h"

#include <QElapsedTimer>
#include <QUrl>

namespace tst_TransferPool_outcomes {

namespace {

using Handler = FaultServer::Handler;

constexpr int longPauseMs = 60000;
const QByteArray theFile = "the file";
const QString odd = QStringLiteral("odd");
const QStringList others = numbered(QStringLiteral("f"), 5);

Handler resetting()
{
    return [](HttpExchange& exchange) { exchange.reset(); };
}

HttpAnswer brokenBody()
{
    return HttpAnswer(200)
        .field("ETag", "\"1\"")
        .field("Content-Length", "1000")
        .bareBody(pattern(400));
}

/// Five ordinary transfers and an odd one, in one pool and from one server. The ordinary ones are
/// answered when the request of the odd one has come and, if that ends by itself, has ended.
class SixTransfers
{
public:
    SixTransfers(Handler handler, bool oddEnds)
        : m_server([this, handler = std::move(handler), oddEnds](HttpExchange& exchange) {
            const QByteArray target = exchange.request().target;
            if (!target.startsWith("/f")) {
                handler(exchange);
                return;
            }
            holdUntil(exchange, [&] {
                return oddEnds ? m_oddHasEnded.load() : m_server.requestCount("/odd") > 0;
            });
            exchange.answer(HttpAnswer(200).body(theFile + target));
        })
    {
    }

    void start(const QString& oddUrl = QString())
    {
        for (const QString& name : others)
            m_run.start(m_server.url(QLatin1Char('/') + name), name);
        TransferPool::Job job =
            m_run.job(oddUrl.isEmpty() ? m_server.url(QStringLiteral("/odd")) : oddUrl, odd);
        job.ended = [this, ended = job.ended](const STransferOutcome& outcome) {
            ended(outcome);
            m_oddHasEnded = true;
        };
        m_run.pool().start(job);
    }

    /// Verifies that the ordinary transfers have brought their files.
    void checkOthers() const
    {
        for (const QString& name : others) {
            QCOMPARE(m_run.result(name), 0);
            QCOMPARE(m_run.content(name), theFile + '/' + name.toLatin1());
            QCOMPARE(m_server.requestCount('/' + name.toLatin1()), 1);
        }
    }

    FaultServer& server() { return m_server; }
    PoolRun& run() { return m_run; }

private:
    std::atomic<bool> m_oddHasEnded{false};
    FaultServer m_server;
    PoolRun m_run{6};
};

} // namespace

/// Tests how transfers end while others of the same pool run: each as if it were alone.
class TestTransferPoolOutcomes : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup() { hostSettings() = m_settings; }

    void othersGoOn_data();
    void othersGoOn();
    void othersAreNotDelayed_data();
    void othersAreNotDelayed();
    void badAddressEndsAlone_data();
    void badAddressEndsAlone();
    void missingFolderEndsAlone();
    void callbackEndsItsTransferOnly();
    void stalledTransferFailsAlone();
    void allFailAtOnce();
    void outcomeExplainsTheFailure();
    void unfinishedConnectionsFailTogether_data();
    void unfinishedConnectionsFailTogether();

private:
    const HostSettings m_settings = hostSettings();
};

void TestTransferPoolOutcomes::init()
{
    hostSettings().retryPauseMs = 10;
}

void TestTransferPoolOutcomes::othersGoOn_data()
{
    QTest::addColumn<Handler>("handler");
    QTest::addColumn<int>("result");
    QTest::addColumn<int>("cause");
    QTest::addColumn<int>("requests"); // of the odd one

    const Handler good = answering(HttpAnswer(200).body("odd"));
    const HttpAnswer chunks = HttpAnswer(200).field("Transfer-Encoding", "chunked");
    QTest::newRow("success") << good << 0 << int(eFailure_None) << 1;
    QTest::newRow("not found") << answering(HttpAnswer(404).body("none")) << 4
                               << int(eFailure_NotOnServer) << 1;
    QTest::newRow("refused") << answering(HttpAnswer(403).body("no")) << 4
                             << int(eFailure_ServerError) << 1;
    QTest::newRow("reset") << resetting() << 3 << int(eFailure_ConnectionLost) << 3;
    QTest::newRow("reset, then success")
        << inTurn({resetting(), good}) << 0 << int(eFailure_None) << 2;
    QTest::newRow("unavailable") << answering(HttpAnswer(503).body("later")) << 4
                                 << int(eFailure_ServerError) << 3;
    QTest::newRow("cut chunks") << answeringAndClosing(
        HttpAnswer(chunks).bareBody(HttpAnswer::chunk(pattern(500))))
                                << 3 << int(eFailure_ConnectionLost) << 3;
    QTest::newRow("announced too large")
        << answering(HttpAnswer(200).body(pattern(30000))) << 6 << int(eFailure_TooLarge) << 1;
    QTest::newRow("too large in chunks") << answering(
        HttpAnswer(chunks).bareBody(HttpAnswer::chunk(pattern(30000)) + HttpAnswer::lastChunk()))
                                         << 6 << int(eFailure_TooLarge) << 1;
    QTest::newRow("redirected") << inTurn({answering(redirectTo("/there")), good}) << 0
                                << int(eFailure_None) << 1;
    QTest::newRow("redirected in circles")
        << answering(redirectTo("/odd")) << 1 << int(eFailure_BadAddress) << 6;
    QTest::newRow("login page") << answering(HttpAnswer(200).body("<!DOCTYPE html><html>")) << 3
                                << int(eFailure_Unreachable) << 1;
}

void TestTransferPoolOutcomes::othersGoOn()
{
    QFETCH(Handler, handler);
    QFETCH(int, result);
    QFETCH(int, cause);
    QFETCH(int, requests);

    hostSettings().maxDownloadBytes = 20000;
    SixTransfers six(handler, true);
    six.start();
    QVERIFY(six.run().finish());

    QCOMPARE(six.run().names().constFirst(), odd);
    QCOMPARE(six.run().result(odd), result);
    QCOMPARE(int(six.run().outcome(odd).m_failure.m_eCause), cause);
    QCOMPARE(six.server().requestCount("/odd"), requests);
    QCOMPARE(six.run().content(odd), result == 0 ? QByteArray("odd") : QByteArray());
    six.checkOthers();
    QCOMPARE(six.run().files().size(), result == 0 ? 6 : 5);
}

void TestTransferPoolOutcomes::othersAreNotDelayed_data()
{
    QTest::addColumn<Handler>("handler");

    QTest::newRow("pause before a retry") << answering(HttpAnswer(503).body("later"));
    QTest::newRow("pause that the server asks for")
        << answering(HttpAnswer(503).field("Retry-After", "60").body("later"));
    QTest::newRow("pause after a reset") << resetting();
    QTest::newRow("pause in the middle of a body") << answeringAndClosing(brokenBody());
    QTest::newRow("no answer") << Handler([](HttpExchange& exchange) { exchange.stall(); });
    QTest::newRow("stall in the body") << Handler(&sendHalfAndStall);
}

void TestTransferPoolOutcomes::othersAreNotDelayed()
{
    QFETCH(Handler, handler);

    hostSettings().retryPauseMs = longPauseMs;
    hostSettings().retryPauseMaxMs = longPauseMs;
    hostSettings().stallTimeoutMs = longPauseMs;
    SixTransfers six(handler, false);
    six.start();
    QVERIFY(six.run().runUntil([&] { return six.run().names().size() == 5; }));

    six.checkOthers();
    QVERIFY(six.run().pool().isBusy());
    QVERIFY(six.run().pool().hasRoom());
    QCOMPARE(six.server().requestCount("/odd"), 1);
    six.run().pool().cancel();
    QVERIFY(six.run().finish());
    QCOMPARE(six.run().result(odd), 5);
    QCOMPARE(six.server().requestCount("/odd"), 1);
    QCOMPARE(six.run().files(), others);
}

void TestTransferPoolOutcomes::badAddressEndsAlone_data()
{
    QTest::addColumn<QString>("url");
    QTest::addColumn<int>("result");

    QTest::newRow("scheme") << QStringLiteral("ftp://127.0.0.1/file") << 1;
    QTest::newRow("no host") << QStringLiteral("http:///file") << 1;
    QTest::newRow("nobody there")
        << QStringLiteral("http://127.0.0.1:%1/file").arg(FaultServer::refusingPort()) << 3;
    QTest::newRow("unknown host") << QStringLiteral("http://does-not-exist.invalid/") << 3;
}

void TestTransferPoolOutcomes::badAddressEndsAlone()
{
    QFETCH(QString, url);
    QFETCH(int, result);

    SixTransfers six(answering(HttpAnswer(200).body("odd")), true);
    six.start(url);
    QVERIFY(six.run().finish());
    QCOMPARE(six.run().result(odd), result);
    QCOMPARE(six.server().requestCount("/odd"), 0);
    six.checkOthers();
}

void TestTransferPoolOutcomes::missingFolderEndsAlone()
{
    FaultServer server(answering(HttpAnswer(200).body(theFile)));
    PoolRun run(2);
    for (const char* name : {"missing/a", "b"})
        run.start(server.url(QStringLiteral("/file")), QString::fromLatin1(name));
    QVERIFY(run.finish());
    QCOMPARE(run.result(QStringLiteral("missing/a")), 2);
    QCOMPARE(run.result(QStringLiteral("b")), 0);
    QCOMPARE(server.requestCount(), 1);
}

void TestTransferPoolOutcomes::callbackEndsItsTransferOnly()
{
    std::atomic<bool> isOver{false};
    FaultServer server([&](HttpExchange& exchange) {
        if (exchange.request().target == "/half")
            sendHalfAndStall(exchange);
        holdUntil(exchange, [&] { return isOver.load(); });
        exchange.answer(HttpAnswer(200).body(theFile));
    });
    PoolRun run(3);
    run.start(server.url(QStringLiteral("/a")), QStringLiteral("a"));
    TransferPool::Job job = run.job(server.url(QStringLiteral("/half")), QStringLiteral("half"));
    job.progress = [](qint64 received, qint64) { return received == 0; };
    run.pool().start(job);
    run.start(server.url(QStringLiteral("/b")), QStringLiteral("b"));
    QVERIFY(run.runUntil([&] { return run.result(QStringLiteral("half")) == 5; }));
    QCOMPARE(run.names().size(), 1);
    isOver = true;
    QVERIFY(run.finish());
    QCOMPARE(run.result(QStringLiteral("a")), 0);
    QCOMPARE(run.result(QStringLiteral("b")), 0);
}

/// The others receive enough meanwhile; the time of silence is each transfer's own.
void TestTransferPoolOutcomes::stalledTransferFailsAlone()
{
    using namespace std::chrono_literals;
    hostSettings().stallTimeoutMs = 300;
    std::atomic<bool> isOver{false};
    FaultServer server([&](HttpExchange& exchange) {
        if (exchange.request().target == "/half")
            sendHalfAndStall(exchange);
        exchange.answer(HttpAnswer(200).field("Transfer-Encoding", "chunked"));
        while (!isOver && exchange.isOpen()) {
            exchange.send(HttpAnswer::chunk(pattern(1000)));
            exchange.pause(10ms);
        }
        exchange.send(HttpAnswer::lastChunk());
    });
    PoolRun run(3);
    for (const char* name : {"a", "half", "b"})
        run.start(server.url(QLatin1Char('/') + QString::fromLatin1(name)),
                  QString::fromLatin1(name));
    QVERIFY(run.runUntil([&] { return run.result(QStringLiteral("half")) == 3; }));
    QCOMPARE(run.names().size(), 1);
    isOver = true;
    QVERIFY(run.finish());
    QCOMPARE(run.result(QStringLiteral("a")), 0);
    QCOMPARE(run.result(QStringLiteral("b")), 0);
}

void TestTransferPoolOutcomes::allFailAtOnce()
{
    hostSettings().downloadRetries = 0;
    std::atomic<int> arrived{0};
    FaultServer server([&](HttpExchange& exchange) {
        ++arrived;
        holdUntil(exchange, [&] { return arrived >= 6; });
        exchange.reset();
    });
    PoolRun run(6);
    const QStringList names = numbered(QStringLiteral("f"), 6);
    for (const QString& name : names)
        run.start(server.url(QStringLiteral("/file")), name);
    QVERIFY(run.finish());
    for (const QString& name : names)
        QCOMPARE(run.result(name), 3);
    QVERIFY(run.files().isEmpty());
}

void TestTransferPoolOutcomes::outcomeExplainsTheFailure()
{
    FaultServer server(answering(HttpAnswer(404).field("ETag", "\"none\"").body("none")));
    PoolRun run(2);
    const QString url = server.url(QStringLiteral("/a"));
    run.start(url, QStringLiteral("a"));
    QVERIFY(run.finish());
    const STransferOutcome outcome = run.outcome(QStringLiteral("a"));
    QCOMPARE(outcome.m_failure.m_qsUrl, url);
    QCOMPARE(outcome.m_failure.m_qsFile, run.path(QStringLiteral("a")));
    QCOMPARE(outcome.m_failure.m_qsDetails,
             QStringLiteral("%1: HTTP status 404 (0 bytes received; local file %2)")
                 .arg(url, run.path(QStringLiteral("a"))));
    QVERIFY(outcome.m_validators.isEmpty());
    QVERIFY(!outcome.m_bNotModified);
}

void TestTransferPoolOutcomes::unfinishedConnectionsFailTogether_data()
{
    QTest::addColumn<QString>("scheme");
    QTest::newRow("TCP") << QStringLiteral("http");
    QTest::newRow("TLS") << QStringLiteral("https");
}

/// Transfers that wait for the connection of another one share its time limit.
void TestTransferPoolOutcomes::unfinishedConnectionsFailTogether()
{
    QFETCH(QString, scheme);

    if (!SilentPort::isPossible)
        QSKIP("This system refuses what it cannot queue.");
    hostSettings().connectTimeoutMs = 500;
    const SilentPort silent;
    QUrl url(silent.url(QStringLiteral("/file")));
    url.setScheme(scheme);
    PoolRun run(6);
    const QStringList names = numbered(QStringLiteral("f"), 6);
    QElapsedTimer timer;
    timer.start();
    for (const QString& name : names)
        run.start(url.toString(), name);
    QVERIFY(run.finish());
    for (const QString& name : names) {
        QCOMPARE(run.result(name), 3);
        QCOMPARE(run.outcome(name).m_failure.m_eCause, eFailure_Unreachable);
    }
    QVERIFY2(timer.elapsed() < 2 * 500, QByteArray::number(timer.elapsed()).constData());
}

MV_TEST_MAIN(TestTransferPoolOutcomes)

} // namespace tst_TransferPool_outcomes

#include "tst_TransferPool_outcomes.moc"
