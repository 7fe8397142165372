// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "Download.h"
#include "host/HostSettings.h"
#include "SilentPort.h"

#include <QElapsedTimer>

using namespace std::chrono_literals;

namespace {

using Handler = FaultServer::Handler;

QByteArray chunkedHead()
{
    return HttpAnswer(200).field("Transfer-Encoding", "chunked").bytes();
}

QByteArray headAnnouncing(int length)
{
    return HttpAnswer(200).field("Content-Length", QByteArray::number(length)).bytes();
}

Handler sendingAndResetting(const QByteArray& bytes)
{
    return [bytes](HttpExchange& exchange) {
        exchange.send(bytes);
        exchange.reset();
    };
}

Handler sendingAndStalling(const QByteArray& bytes)
{
    return [bytes](HttpExchange& exchange) {
        exchange.send(bytes);
        exchange.stall();
    };
}

} // namespace

/// Tests the failures between the downloader and a server: result 3.
class TestCurWrapperFaults : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup() { hostSettings() = m_settings; }

    void refusedConnection();
    void unknownHost();
    void connectionThatIsNeverEstablished();
    void brokenAnswer_data();
    void brokenAnswer();
    void bodyWithoutAKnownEnd_data();
    void bodyWithoutAKnownEnd();
    void noAnswerOfHttp_data();
    void noAnswerOfHttp();
    void stall_data();
    void stall();
    void stallIsNotTriedAgain();
    void stallingErrorPageKeepsItsStatus();
    void completeFileDoesNotWaitForTheServer_data();
    void completeFileDoesNotWaitForTheServer();
    void slowIsNotStalled();
    void slowHeaderIsNotStalled();
    void tricklingIsStalled_data();
    void tricklingIsStalled();

private:
    const HostSettings m_settings = hostSettings();
};

void TestCurWrapperFaults::init()
{
    hostSettings().downloadRetries = 0;
    hostSettings().stallTimeoutMs = 20000;
}

void TestCurWrapperFaults::refusedConnection()
{
    const quint16 port = FaultServer::refusingPort();
    const QString url = QStringLiteral("http://127.0.0.1:%1/file").arg(port);
    Download download;
    QCOMPARE(download.run(url), 3);
    QVERIFY2(download.errorText().startsWith(url + QStringLiteral(": ")),
             qPrintable(download.errorText()));
    QVERIFY2(download.errorText().contains(QStringLiteral("connect")),
             qPrintable(download.errorText()));
}

void TestCurWrapperFaults::unknownHost()
{
    Download download;
    QCOMPARE(download.run(QStringLiteral("http://does-not-exist.invalid/file")), 3);
    QVERIFY2(download.errorText().contains(
                 QStringLiteral("Could not resolve host: does-not-exist.invalid")),
             qPrintable(download.errorText()));
}

void TestCurWrapperFaults::connectionThatIsNeverEstablished()
{
    if (!SilentPort::isPossible)
        QSKIP("This system refuses what it cannot queue.");
    const SilentPort silent;
    hostSettings().connectTimeoutMs = 300;
    Download download;
    QCOMPARE(download.run(silent.url(QStringLiteral("/file"))), 3);
    QVERIFY2(download.errorText().contains(QStringLiteral("timeout"), Qt::CaseInsensitive)
                 || download.errorText().contains(QStringLiteral("timed out"), Qt::CaseInsensitive),
             qPrintable(download.errorText()));
}

void TestCurWrapperFaults::brokenAnswer_data()
{
    QTest::addColumn<Handler>("handler");
    QTest::addColumn<int>("received");

    const QByteArray body = pattern(1000);
    QTest::newRow("closed without an answer") << answeringAndClosing("") << 0;
    QTest::newRow("reset without an answer") << sendingAndResetting("") << 0;
    QTest::newRow("closed in the header")
        << answeringAndClosing("HTTP/1.1 200 OK\r\nContent-Le") << 0;
    QTest::newRow("reset in the header")
        << sendingAndResetting("HTTP/1.1 200 OK\r\nContent-Le") << 0;
    QTest::newRow("closed behind the status line")
        << answeringAndClosing("HTTP/1.1 200 OK\r\n") << 0;
    QTest::newRow("closed behind a field")
        << answeringAndClosing("HTTP/1.1 200 OK\r\nContent-Length: 0\r\n") << 0;
    QTest::newRow("closed in the header of an error page")
        << answeringAndClosing("HTTP/1.1 404 None\r\nContent-Length: 0\r\n") << 0;
    QTest::newRow("closed in the header of a redirect")
        << answeringAndClosing("HTTP/1.1 302 Moved\r\nLocation: /there\r\n") << 0;
    QTest::newRow("closed behind an interim answer")
        << answeringAndClosing("HTTP/1.1 100 Continue\r\n\r\n") << 0;
    QTest::newRow("closed behind the header") << answeringAndClosing(headAnnouncing(1000)) << 0;
    QTest::newRow("reset behind the header") << sendingAndResetting(headAnnouncing(1000)) << 0;
    QTest::newRow("shorter than announced")
        << answeringAndClosing(headAnnouncing(1001) + body) << 1000;
    QTest::newRow("reset in the body") << sendingAndResetting(headAnnouncing(2000) + body) << 1000;
    QTest::newRow("closed between chunks")
        << answeringAndClosing(chunkedHead() + HttpAnswer::chunk(body)) << 1000;
    QTest::newRow("closed in a chunk")
        << answeringAndClosing(chunkedHead() + "7d0\r\n" + body) << 1000;
    QTest::newRow("closed in the last chunk")
        << answeringAndClosing(chunkedHead() + HttpAnswer::chunk(body) + "0\r\n") << 1000;
    QTest::newRow("reset between chunks")
        << sendingAndResetting(chunkedHead() + HttpAnswer::chunk(body)) << 1000;
}

void TestCurWrapperFaults::brokenAnswer()
{
    QFETCH(Handler, handler);
    QFETCH(int, received);

    FaultServer server(handler);
    Download download;
    QCOMPARE(download.run(server.url(QStringLiteral("/file"))), 3);
    QVERIFY2(download.errorText().contains(QStringLiteral("(%1 bytes received;").arg(received)),
             qPrintable(download.errorText()));
    QCOMPARE(server.requestCount(), 1);
}

void TestCurWrapperFaults::bodyWithoutAKnownEnd_data()
{
    QTest::addColumn<Handler>("handler");

    const QByteArray whole = HttpAnswer(200).bareBody(pattern(1000)).bytes();
    QTest::newRow("closed in order") << answeringAndClosing(whole);
    QTest::newRow("closed in order, announced")
        << answeringAndClosing("HTTP/1.1 200 OK\r\nConnection: close\r\n\r\n" + pattern(1000));
    QTest::newRow("HTTP/1.0") << answeringAndClosing("HTTP/1.0 200 OK\r\n\r\n" + pattern(1000));
    QTest::newRow("reset") << sendingAndResetting(whole);
    QTest::newRow("no byte of it") << answeringAndClosing(HttpAnswer(200).bytes());
    QTest::newRow("never closed") << sendingAndStalling(whole);
}

void TestCurWrapperFaults::bodyWithoutAKnownEnd()
{
    QFETCH(Handler, handler);

    hostSettings().downloadRetries = 2; // retrying this server would not help
    FaultServer server(handler);
    Download download;
    QCOMPARE(download.run(server.url(QStringLiteral("/file"))), 3);
    QVERIFY2(download.errorText().contains(
                 QStringLiteral("the server announces neither a length nor chunks")),
             qPrintable(download.errorText()));
    QCOMPARE(server.requestCount(), 1);
}

void TestCurWrapperFaults::noAnswerOfHttp_data()
{
    QTest::addColumn<QByteArray>("answer");

    QTest::newRow("another protocol") << QByteArray("220 mail.example ready\r\n\r\n");
    QTest::newRow("only a file") << pattern(2000);
    QTest::newRow("a length that is no number")
        << HttpAnswer(200).field("Content-Length", "many").bareBody("file").bytes();
    QTest::newRow("a chunk size that is no number")
        << chunkedHead() + "many\r\nfile\r\n" + HttpAnswer::lastChunk();
    QTest::newRow("a chunk longer than it says")
        << chunkedHead() + "2\r\nfile\r\n" + HttpAnswer::lastChunk();
    QTest::newRow("an endless header")
        << "HTTP/1.1 200 OK\r\nX: " + QByteArray(2000000, 'x') + "\r\n\r\n";
}

void TestCurWrapperFaults::noAnswerOfHttp()
{
    QFETCH(QByteArray, answer);

    FaultServer server(answeringAndClosing(answer));
    Download download;
    QCOMPARE(download.run(server.url(QStringLiteral("/file"))), 3);
}

void TestCurWrapperFaults::stall_data()
{
    QTest::addColumn<Handler>("handler");
    QTest::addColumn<int>("received");

    const QByteArray body = pattern(1000);
    QTest::newRow("before the answer") << sendingAndStalling("") << 0;
    QTest::newRow("in the header") << sendingAndStalling("HTTP/1.1 200 OK\r\nContent-Le") << 0;
    QTest::newRow("behind the header") << sendingAndStalling(headAnnouncing(2000)) << 0;
    QTest::newRow("in the body") << sendingAndStalling(headAnnouncing(2000) + body) << 1000;
    QTest::newRow("between chunks")
        << sendingAndStalling(chunkedHead() + HttpAnswer::chunk(body)) << 1000;
    QTest::newRow("before the last chunk ends")
        << sendingAndStalling(chunkedHead() + HttpAnswer::chunk(body) + "0\r\n") << 1000;
}

void TestCurWrapperFaults::stall()
{
    QFETCH(Handler, handler);
    QFETCH(int, received);

    hostSettings().stallTimeoutMs = 300;
    FaultServer server(handler);
    QElapsedTimer timer;
    timer.start();
    Download download;
    QCOMPARE(download.run(server.url(QStringLiteral("/file"))), 3);
    QVERIFY(timer.elapsed() >= 300);
    QVERIFY2(download.errorText().contains(
                 QStringLiteral("no data received for 300 ms (%1 bytes received;").arg(received)),
             qPrintable(download.errorText()));
}

void TestCurWrapperFaults::stallIsNotTriedAgain()
{
    hostSettings().downloadRetries = 2;
    hostSettings().stallTimeoutMs = 200;
    FaultServer server(sendingAndStalling(headAnnouncing(2000) + pattern(1000)));
    Download download;
    QCOMPARE(download.run(server.url(QStringLiteral("/file"))), 3);
    QCOMPARE(server.requestCount(), 1);
}

void TestCurWrapperFaults::stallingErrorPageKeepsItsStatus()
{
    hostSettings().stallTimeoutMs = 200;
    FaultServer server(
        sendingAndStalling(HttpAnswer(404).field("Content-Length", "100").bytes() + "half"));
    Download download;
    QCOMPARE(download.run(server.url(QStringLiteral("/file"))), 4);
}

void TestCurWrapperFaults::completeFileDoesNotWaitForTheServer_data()
{
    QTest::addColumn<QByteArray>("answer");

    QTest::newRow("length") << HttpAnswer(200).body(pattern(1000)).bytes();
    QTest::newRow("chunks") << chunkedHead() + HttpAnswer::chunk(pattern(1000))
            + HttpAnswer::lastChunk();
    QTest::newRow("bytes behind the body")
        << HttpAnswer(200).body(pattern(1000)).bytes() + "and more";
}

void TestCurWrapperFaults::completeFileDoesNotWaitForTheServer()
{
    QFETCH(QByteArray, answer);

    FaultServer server(sendingAndStalling(answer));
    Download download;
    QCOMPARE(download.run(server.url(QStringLiteral("/file"))), 0);
    QCOMPARE(download.content(), pattern(1000));
}

void TestCurWrapperFaults::slowIsNotStalled()
{
    // The whole transfer takes longer than the stall limit, but no pause in it does.
    hostSettings().stallTimeoutMs = 2000;
    const QByteArray body = pattern(9000);
    FaultServer server([&](HttpExchange& exchange) {
        exchange.send(headAnnouncing(body.size()));
        for (int at = 0; at < body.size(); at += 3000) {
            exchange.pause(1s);
            exchange.send(body.mid(at, 3000));
        }
    });
    Download download;
    QCOMPARE(download.run(server.url(QStringLiteral("/file"))), 0);
    QCOMPARE(download.content(), body);
}

void TestCurWrapperFaults::slowHeaderIsNotStalled()
{
    hostSettings().stallTimeoutMs = 2000;
    FaultServer server([](HttpExchange& exchange) {
        for (const char* line :
             {"HTTP/1.1 200 OK\r\n", "A: 1\r\n", "B: 2\r\n", "Content-Length: 4\r\n", "\r\nfile"}) {
            exchange.pause(300ms);
            exchange.send(line);
        }
    });
    Download download;
    QCOMPARE(download.run(server.url(QStringLiteral("/file"))), 0);
    QCOMPARE(download.content(), QByteArray("file"));
}

void TestCurWrapperFaults::tricklingIsStalled_data()
{
    QTest::addColumn<QByteArray>("beginning");
    QTest::addColumn<QByteArray>("piece"); // sent repeatedly
    QTest::addColumn<int>("result");

    QTest::newRow("body") << headAnnouncing(1000000) << QByteArray("x") << 3;
    QTest::newRow("chunks") << chunkedHead() << QByteArray("1\r\nx\r\n") << 3;
    QTest::newRow("header") << QByteArray("HTTP/1.1 200 OK\r\n") << QByteArray("A: b\r\n") << 3;
    QTest::newRow("interim answers")
        << QByteArray() << QByteArray("HTTP/1.1 100 Continue\r\n\r\n") << 3;
    QTest::newRow("trailer") << chunkedHead() + HttpAnswer::chunk(pattern(1000)) + "0\r\n"
                             << QByteArray("A: b\r\n") << 3;
    QTest::newRow("error page") << HttpAnswer(404).field("Content-Length", "60000").bytes()
                                << QByteArray("x") << 4;
}

/// An occasional byte prevents silence and would keep a download running for ever.
void TestCurWrapperFaults::tricklingIsStalled()
{
    QFETCH(QByteArray, beginning);
    QFETCH(QByteArray, piece);
    QFETCH(int, result);

    hostSettings().stallTimeoutMs = 500;
    hostSettings().downloadRetries = 0;
    FaultServer server([&](HttpExchange& exchange) {
        exchange.send(beginning);
        while (exchange.isOpen()) {
            exchange.pause(100ms);
            exchange.send(piece);
        }
    });
    Download download;
    QCOMPARE(download.run(server.url(QStringLiteral("/file"))), result);
    QCOMPARE(download.errorText().contains(QStringLiteral(" bytes received in ")), result == 3);
}

MV_TEST_MAIN(TestCurWrapperFaults)
#include "tst_CurWrapper_faults.moc"
