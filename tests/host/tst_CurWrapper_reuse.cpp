// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "Download.h"
#include "host/HostSettings.h"

namespace {

using Handler = FaultServer::Handler;

struct Failure
{
    const char* name;
    int result;
    const char* path;
};

/// One path for every way in which a server can fail a download.
const Failure failures[] = {
    {"redirect to ftp", 1, "/ftp"},
    {"loop", 1, "/loop"},
    {"reset", 3, "/reset"},
    {"short body", 3, "/short"},
    {"cut chunks", 3, "/chunks"},
    {"no length", 3, "/endless"},
    {"cut header", 3, "/header"},
    {"stall", 3, "/stall"},
    {"not found", 4, "/missing"},
    {"large error page", 4, "/page"},
    {"encoded", 4, "/gzip"},
    {"announced too large", 6, "/large"},
    {"too large in chunks", 6, "/largechunks"},
    {"unavailable", 4, "/unavailable"},
    {"cancelled", 5, "/good?cancel"},
    {"cancelled in a stall", 5, "/stall?cancel"},
};

constexpr int longestPage = 64 * 1024; // of an error, that is read past

void failAsAsked(HttpExchange& exchange)
{
    const QByteArray path = exchange.request().target.split('?').first();
    const HttpAnswer chunks = HttpAnswer(200).field("Transfer-Encoding", "chunked");
    const HttpAnswer announced = HttpAnswer(200).field("Content-Length", "5000");
    if (path == "/ftp")
        exchange.answer(redirectTo("ftp://127.0.0.1/file"));
    else if (path == "/loop")
        exchange.answer(redirectTo("/loop"));
    else if (path == "/reset" || path == "/short" || path == "/stall")
        exchange.answer(HttpAnswer(announced).bareBody("beginning"));
    else if (path == "/chunks")
        exchange.answer(HttpAnswer(chunks).bareBody(HttpAnswer::chunk("beginning")));
    else if (path == "/endless")
        exchange.answer(HttpAnswer(200).bareBody("some bytes"));
    else if (path == "/header")
        exchange.send("HTTP/1.1 200 OK\r\nContent-Length: 5");
    else if (path == "/missing")
        exchange.answer(HttpAnswer(404).body("no such file"));
    else if (path == "/page")
        exchange.answer(HttpAnswer(404).body(pattern(300000)));
    else if (path == "/gzip")
        exchange.answer(HttpAnswer(200).field("Content-Encoding", "gzip").body("file"));
    else if (path == "/large")
        exchange.answer(HttpAnswer(200).body(pattern(20000)));
    else if (path == "/largechunks")
        exchange.answer(HttpAnswer(chunks).bareBody(HttpAnswer::chunk(pattern(20000))
                                                    + HttpAnswer::lastChunk()));
    else if (path == "/unavailable")
        exchange.answer(HttpAnswer(503).body(""));
    else
        exchange.answer(HttpAnswer(200).body(pattern(5000, 9)));

    if (path == "/reset")
        exchange.reset();
    else if (path == "/stall")
        exchange.stall();
    else if (path == "/short" || path == "/chunks" || path == "/endless" || path == "/header")
        exchange.close();
}

} // namespace

/// Tests that one object serves many downloads: failures have no after-effects, connections stay
/// open.
class TestCurWrapperReuse : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup() { hostSettings() = m_settings; }

    void downloadsAfterAFailure_data();
    void downloadsAfterAFailure();
    void downloadsAfterALocalFailure();
    void downloadsAfterABadUrl();
    void downloadsAfterARefusedConnection();
    void keepsOneConnectionForManyFiles();
    void keepsTheConnectionAcross_data();
    void keepsTheConnectionAcross();
    void largerErrorPageIsNotReadPast();
    void eachErrorPageIsReadPastForItself();
    void eachErrorTextCountsItsOwnBytes();
    void reconnectsWhenTheServerHasClosed();
    void nextDownloadAsksForNoRange();
    void continuationLineBelongsToNoEarlierAnswer();

private:
    const HostSettings m_settings = hostSettings();
};

void TestCurWrapperReuse::init()
{
    hostSettings().retryPauseMs = 10;
    hostSettings().stallTimeoutMs = 300;
    hostSettings().maxDownloadBytes = 10000;
}

void TestCurWrapperReuse::downloadsAfterAFailure_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<int>("result");
    for (const Failure& failure : failures)
        QTest::newRow(failure.name) << QString::fromLatin1(failure.path) << failure.result;
}

void TestCurWrapperReuse::downloadsAfterAFailure()
{
    QFETCH(QString, path);
    QFETCH(int, result);

    FaultServer server(failAsAsked);
    Download download;
    for (int round = 0; round < 2; ++round) {
        const bool cancels = path.endsWith(QLatin1String("cancel"));
        ProgressWatch watch(download.wrapper(),
                            [&](const ProgressWatch::Call& call) { return call.received == 0; });
        if (!cancels)
            download.wrapper().setDownloadProgressCallback(nullptr, nullptr);
        QCOMPARE(download.run(server.url(path)), result);

        download.wrapper().setDownloadProgressCallback(nullptr, nullptr);
        QCOMPARE(download.run(server.url(QStringLiteral("/good"))), 0);
        QCOMPARE(download.wrapper().result(), 0);
        QCOMPARE(download.content(), pattern(5000, 9));
    }
}

void TestCurWrapperReuse::downloadsAfterALocalFailure()
{
    FaultServer server(failAsAsked);
    Download download;
    download.wrapper().download(server.url(QStringLiteral("/good")), download.folder(), false);
    QCOMPARE(download.wrapper().result(), 2);
    download.wrapper().download(server.url(QStringLiteral("/good")),
                                download.folder() + QStringLiteral("/missing/file"), false);
    QCOMPARE(download.wrapper().result(), 2);
    QCOMPARE(download.run(server.url(QStringLiteral("/good"))), 0);
    QCOMPARE(download.content(), pattern(5000, 9));
}

void TestCurWrapperReuse::downloadsAfterABadUrl()
{
    FaultServer server(failAsAsked);
    Download download;
    QCOMPARE(download.run(QStringLiteral("file:///etc/hostname")), 1);
    QCOMPARE(download.run(server.url(QStringLiteral("/good"))), 0);
    QCOMPARE(download.content(), pattern(5000, 9));
}

void TestCurWrapperReuse::downloadsAfterARefusedConnection()
{
    FaultServer server(failAsAsked);
    Download download;
    const quint16 port = FaultServer::refusingPort();
    QCOMPARE(download.run(QStringLiteral("http://127.0.0.1:%1/good").arg(port)), 3);
    QCOMPARE(download.run(QStringLiteral("http://does-not-exist.invalid/good")), 3);
    QCOMPARE(download.run(server.url(QStringLiteral("/good"))), 0);
    QCOMPARE(download.content(), pattern(5000, 9));
}

void TestCurWrapperReuse::keepsOneConnectionForManyFiles()
{
    FaultServer server([](HttpExchange& exchange) {
        exchange.answer(HttpAnswer(200).body("content of " + exchange.request().target));
    });
    Download download;
    for (int i = 0; i < 50; ++i) {
        const QString path = QStringLiteral("/%1.bin").arg(i);
        const QString file = download.folder() + path;
        download.wrapper().download(server.url(path), file, false);
        QCOMPARE(download.wrapper().result(), 0);
        QCOMPARE(CatalogueFiles::read(file), "content of " + path.toLatin1());
    }
    QCOMPARE(server.requestCount(), 50);
    QCOMPARE(server.connectionCount(), 1);
    QCOMPARE(download.files().size(), 50);
}

void TestCurWrapperReuse::keepsTheConnectionAcross_data()
{
    QTest::addColumn<Handler>("handler");
    QTest::addColumn<int>("result");
    QTest::addColumn<int>("requests");

    const HttpAnswer good = HttpAnswer(200).body("good");
    QTest::newRow("a redirect") << inTurn({answering(redirectTo("/there")), answering(good)}) << 0
                                << 3;
    QTest::newRow("a small error page")
        << inTurn({answering(HttpAnswer(404).body("no such file")), answering(good)}) << 4 << 2;
    QTest::newRow("the largest error page")
        << inTurn({answering(HttpAnswer(404).body(pattern(longestPage))), answering(good)}) << 4
        << 2;
    QTest::newRow("an error page in chunks")
        << inTurn({answering(HttpAnswer(404)
                                 .field("Transfer-Encoding", "chunked")
                                 .bareBody(HttpAnswer::chunk("none") + HttpAnswer::lastChunk())),
                   answering(good)})
        << 4 << 2;
    QTest::newRow("an empty error page")
        << inTurn({answering(HttpAnswer(404).body("")), answering(good)}) << 4 << 2;
    QTest::newRow("no content") << inTurn({answering(HttpAnswer(204)), answering(good)}) << 4 << 2;
    QTest::newRow("a retry") << inTurn({answering(HttpAnswer(503).body("later")), answering(good)})
                             << 0 << 3;
    QTest::newRow("a file in chunks")
        << inTurn({answering(HttpAnswer(200)
                                 .field("Transfer-Encoding", "chunked")
                                 .bareBody(HttpAnswer::chunk("good") + HttpAnswer::lastChunk())),
                   answering(good)})
        << 0 << 2;
    QTest::newRow("a redirect that is refused")
        << inTurn({answering(redirectTo("ftp://127.0.0.1/file")), answering(good)}) << 1 << 2;
}

void TestCurWrapperReuse::keepsTheConnectionAcross()
{
    QFETCH(Handler, handler);
    QFETCH(int, result);
    QFETCH(int, requests);

    FaultServer server(handler);
    Download download;
    QCOMPARE(download.run(server.url(QStringLiteral("/first"))), result);
    QCOMPARE(download.run(server.url(QStringLiteral("/second"))), 0);
    QCOMPARE(download.content(), QByteArray("good"));
    QCOMPARE(server.requestCount(), requests);
    QCOMPARE(server.connectionCount(), 1);
}

void TestCurWrapperReuse::largerErrorPageIsNotReadPast()
{
    FaultServer server(inTurn({answering(HttpAnswer(404).body(pattern(longestPage + 1))),
                               answering(HttpAnswer(200).body("good"))}));
    Download download;
    QCOMPARE(download.run(server.url(QStringLiteral("/file"))), 4);
    QCOMPARE(download.run(server.url(QStringLiteral("/file"))), 0);
    QCOMPARE(server.connectionCount(), 2);
}

void TestCurWrapperReuse::eachErrorPageIsReadPastForItself()
{
    FaultServer server(answering(HttpAnswer(404).body(pattern(longestPage / 2 + 1))));
    Download download;
    for (int i = 0; i < 3; ++i)
        QCOMPARE(download.run(server.url(QStringLiteral("/file"))), 4);
    QCOMPARE(server.connectionCount(), 1);
}

void TestCurWrapperReuse::eachErrorTextCountsItsOwnBytes()
{
    hostSettings().downloadRetries = 0;
    FaultServer server(failAsAsked);
    Download download;
    QCOMPARE(download.run(server.url(QStringLiteral("/short"))), 3);
    QVERIFY2(download.errorText().contains(QStringLiteral("(9 bytes received;")),
             qPrintable(download.errorText()));
    QCOMPARE(download.run(server.url(QStringLiteral("/missing"))), 4);
    QVERIFY2(download.errorText().contains(QStringLiteral("(0 bytes received;")),
             qPrintable(download.errorText()));
}

void TestCurWrapperReuse::reconnectsWhenTheServerHasClosed()
{
    hostSettings().downloadRetries = 0; // a dead idle connection is retried regardless
    FaultServer server(answeringAndClosing(HttpAnswer(200).body("good")));
    Download download;
    for (int i = 0; i < 5; ++i)
        QCOMPARE(download.run(server.url(QStringLiteral("/file"))), 0);
    QCOMPARE(server.requestCount(), 5);
    QCOMPARE(server.connectionCount(), 5);
}

void TestCurWrapperReuse::nextDownloadAsksForNoRange()
{
    hostSettings().downloadRetries = 1;
    const HttpAnswer half =
        HttpAnswer(200).field("ETag", "\"1\"").field("Content-Length", "8").bareBody("half");
    FaultServer server(inTurn({answeringAndClosing(half), answeringAndClosing(half),
                               answering(HttpAnswer(200).body("good"))}));
    Download download;
    QCOMPARE(download.run(server.url(QStringLiteral("/first"))), 3);
    QCOMPARE(server.requests().at(1).fields.value("range"), QByteArray("bytes=4-"));
    QCOMPARE(download.run(server.url(QStringLiteral("/second"))), 0);
    QVERIFY(!server.requests().at(2).fields.contains("range"));
    QVERIFY(!server.requests().at(2).fields.contains("if-range"));
    QCOMPARE(download.content(), QByteArray("good"));
}

/// On a reused handle, libcurl 7.88 continues a line of the previous answer, whose memory it has
/// freed.
void TestCurWrapperReuse::continuationLineBelongsToNoEarlierAnswer()
{
    const QByteArray continued = "HTTP/1.1 200 OK\r\n Continued: " + QByteArray(3000, 'x')
        + "\r\nContent-Length: 4\r\n\r\nevil";
    FaultServer server(inTurn({answering(redirectTo("/there")), answeringAndClosing(continued),
                               answering(HttpAnswer(200).body("good"))}));
    Download download;
    QCOMPARE(download.run(server.url(QStringLiteral("/first"))), 3);
    QCOMPARE(download.run(server.url(QStringLiteral("/second"))), 0);
    QCOMPARE(download.content(), QByteArray("good"));
}

MV_TEST_MAIN(TestCurWrapperReuse)
#include "tst_CurWrapper_reuse.moc"
