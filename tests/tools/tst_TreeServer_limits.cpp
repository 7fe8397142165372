// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "RawClient.h"
#include "server/TreeServer.h"
#include "support/CatalogueFiles.h"
#include "support/TestMain.h"
#include "support/TestTexts.h"

#include <QElapsedTimer>
#include <QFile>
#include <QThread>
#include <QUrl>

#include <algorithm>
#include <array>
#include <atomic>
#include <memory>
#include <thread>
#include <vector>

namespace {

using Clients = std::vector<std::unique_ptr<RawClient>>;

constexpr int longestMs = 20000;
constexpr int bigBytes = 32 * 1024 * 1024;
const QByteArray smallRequest = "GET /small.txt HTTP/1.1\r\n\r\n";
const QByteArray bigRequest = "GET /big.zip HTTP/1.1\r\nConnection: close\r\n\r\n";
const QByteArray unfinishedRequest = "GET /small.txt HTTP/1.1\r\nHost: ";

/// Returns limits that no test reaches.
ServerLimits wideLimits()
{
    ServerLimits limits;
    limits.request = limits.idle = limits.stalled = std::chrono::hours(1);
    limits.connections = 100;
    limits.requests = 100;
    return limits;
}

/// Returns whether an already open connection still has its requests answered.
bool isServed(const RawClient& client)
{
    QByteArray answer;
    client.send(smallRequest);
    while (!answer.endsWith("\r\n\r\nsmall") && client.receive(answer)) { }
    return RawClient::status(answer) == 200;
}

} // namespace

/// Tests slow, stalled and idle clients: when they are cut off, and that others are still served.
class TestTreeServerLimits : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();

    void overdueRequestIsEnded_data();
    void overdueRequestIsEnded();
    void requestInPiecesIsAnswered();
    void requestsAreAnsweredInTurn();
    void tooLargeRequestIsEnded();
    void idleConnectionIsClosed_data();
    void idleConnectionIsClosed();
    void clientThatDoesNotReadIsCutOff();
    void slowReaderGetsTheWholeFile();
    void othersAreServedBesideQuietClients_data();
    void othersAreServedBesideQuietClients();
    void readerIsNotCutOffForOthers();
    void longestIdleConnectionIsReplaced();
    void connectionTooManyIsRefused();
    void connectionEndsWhereTheNextRequestIsUnknown_data();
    void connectionEndsWhereTheNextRequestIsUnknown();
    void stopEndsEveryConnection();
    void heldRequestsWait();

private:
    void start(const ServerLimits& limits);
    std::unique_ptr<RawClient> connectClient(const QByteArray& bytes = QByteArray()) const;

    TreeServer m_server;
    quint16 m_port = 0;
    std::atomic<int> m_answers{0};
};

void TestTreeServerLimits::initTestCase()
{
    CatalogueFiles::write(TestHome::path() + text("/tree/small.txt"), "small");
    QFile big(TestHome::path() + text("/tree/big.zip"));
    QVERIFY(big.open(QIODevice::WriteOnly) && big.resize(bigBytes));
    m_server.setAccessLog([this](const QString&) { ++m_answers; });
}

void TestTreeServerLimits::start(const ServerLimits& limits)
{
    m_server.setLimits(limits);
    QVERIFY2(m_server.start(TestHome::path() + text("/tree")), qPrintable(m_server.errorText()));
    m_port = static_cast<quint16>(QUrl(m_server.url()).port());
    m_answers = 0;
}

std::unique_ptr<RawClient> TestTreeServerLimits::connectClient(const QByteArray& bytes) const
{
    auto client = std::make_unique<RawClient>(m_port);
    client->send(bytes);
    return client;
}

void TestTreeServerLimits::overdueRequestIsEnded_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<bool>("goesOn");
    QTest::addColumn<int>("status");
    QTest::newRow("silence in the first line") << QByteArray("GET /sm") << false << 0;
    QTest::newRow("silence in the head") << unfinishedRequest << false << 408;
    QTest::newRow("one byte after the other") << unfinishedRequest << true << 408;
}

void TestTreeServerLimits::overdueRequestIsEnded()
{
    QFETCH(QByteArray, bytes);
    QFETCH(bool, goesOn);
    QFETCH(int, status);
    ServerLimits limits = wideLimits();
    limits.request = std::chrono::milliseconds(300);
    start(limits);
    const auto client = connectClient(bytes);
    QElapsedTimer timer;
    timer.start();
    while (goesOn && m_answers == 0 && timer.elapsed() < longestMs) {
        client->send("x");
        QTest::qWait(10);
    }
    QVERIFY(timer.elapsed() < longestMs);
    const QByteArray answer = client->receiveAll();
    QVERIFY(client->isEnded());
    QCOMPARE(RawClient::status(answer), status);
    QVERIFY(timer.elapsed() >= limits.request.count());
}

void TestTreeServerLimits::requestInPiecesIsAnswered()
{
    start(wideLimits());
    const auto client = connectClient();
    for (const char byte : "GET /small.txt HTTP/1.1\r\nConnection: close\r\n\r\n") {
        if (byte == '\0')
            break;
        QVERIFY(client->send(QByteArray(1, byte)));
        QTest::qWait(1);
    }
    QVERIFY(client->receiveAll().endsWith("small"));
}

/// Sends requests that arrive at once, and one that is split between two packets.
void TestTreeServerLimits::requestsAreAnsweredInTurn()
{
    start(wideLimits());
    const auto client = connectClient(smallRequest + smallRequest + smallRequest.left(9));
    QByteArray answer;
    while (answer.count("\r\n\r\nsmall") < 2)
        QVERIFY(client->receive(answer));
    QVERIFY(client->send(smallRequest.mid(9)));
    while (answer.count("\r\n\r\nsmall") < 3)
        QVERIFY(client->receive(answer));
    QVERIFY(!client->isEnded());
}

void TestTreeServerLimits::tooLargeRequestIsEnded()
{
    start(wideLimits());
    const auto client = connectClient(unfinishedRequest);
    const QByteArray part(1 << 20, 'x');
    int parts = 0;
    while (parts < 100 && client->send(part))
        ++parts;
    QVERIFY(parts < 100);
    QVERIFY(RawClient(m_port).get("/small.txt").endsWith("small"));
}

void TestTreeServerLimits::idleConnectionIsClosed_data()
{
    QTest::addColumn<QByteArray>("request");
    QTest::newRow("before the first request") << QByteArray();
    QTest::newRow("after a request") << smallRequest;
}

void TestTreeServerLimits::idleConnectionIsClosed()
{
    QFETCH(QByteArray, request);
    ServerLimits limits = wideLimits();
    limits.idle = std::chrono::milliseconds(300);
    start(limits);
    QElapsedTimer timer;
    timer.start();
    const auto client = connectClient(request);
    QCOMPARE(client->receiveAll().endsWith("small"), !request.isEmpty());
    QVERIFY(client->isEnded());
    QVERIFY(timer.elapsed() >= limits.idle.count());
}

void TestTreeServerLimits::clientThatDoesNotReadIsCutOff()
{
    ServerLimits limits = wideLimits();
    limits.stalled = std::chrono::milliseconds(300);
    start(limits);
    const auto client = connectClient(bigRequest);
    QTRY_VERIFY_WITH_TIMEOUT(m_answers == 1, longestMs);
    const QByteArray answer = client->receiveAll();
    QCOMPARE(RawClient::status(answer), 200);
    QVERIFY(answer.size() < bigBytes);
    QVERIFY(client->isEnded());
}

/// The limit applies to each part of an answer, not to the whole.
void TestTreeServerLimits::slowReaderGetsTheWholeFile()
{
    ServerLimits limits = wideLimits();
    limits.stalled = std::chrono::milliseconds(1500);
    start(limits);
    const auto client = connectClient(bigRequest);
    QByteArray answer;
    QElapsedTimer timer;
    timer.start();
    while (timer.elapsed() < 2 * limits.stalled.count()) {
        QVERIFY(client->receive(answer));
        QTest::qWait(20);
    }
    QCOMPARE(m_answers.load(), 0); // is still being sent
    answer += client->receiveAll();
    QCOMPARE(RawClient::field(answer, "Content-Length").toInt(), bigBytes);
    QCOMPARE(RawClient::body(answer).size(), bigBytes);
}

void TestTreeServerLimits::othersAreServedBesideQuietClients_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("do nothing") << QByteArray();
    QTest::newRow("do not finish their request") << unfinishedRequest;
    QTest::newRow("do not read their answer") << bigRequest;
}

void TestTreeServerLimits::othersAreServedBesideQuietClients()
{
    QFETCH(QByteArray, bytes);
    ServerLimits limits = wideLimits();
    limits.requests = 4;
    start(limits);
    Clients quiet;
    for (int i = 0; i < 5 * limits.requests; ++i)
        quiet.push_back(connectClient(bytes));
    for (int i = 0; i < 10; ++i)
        QVERIFY(RawClient(m_port).get("/small.txt").endsWith("small"));
}

void TestTreeServerLimits::readerIsNotCutOffForOthers()
{
    ServerLimits limits = wideLimits();
    limits.requests = 2;
    start(limits);
    std::atomic<bool> isEnough{false};
    std::atomic<int> reads{0};
    QByteArray answer;
    std::thread reader([&] {
        const auto client = connectClient(bigRequest);
        // Reads slowly while the others connect.
        while (!isEnough && client->receive(answer)) {
            ++reads;
            QThread::msleep(5);
        }
        answer += client->receiveAll();
    });
    while (reads == 0)
        QTest::qWait(5);
    const auto quiet = connectClient(bigRequest);
    QByteArray quietAnswer;
    quiet->receive(quietAnswer);
    const int before = reads;
    while (reads < before + 20)
        QTest::qWait(5);
    const QByteArray other = RawClient(m_port).get("/small.txt");
    isEnough = true;
    reader.join();
    QVERIFY(other.endsWith("small"));
    QCOMPARE(RawClient::body(answer).size(), bigBytes);
    QVERIFY(quietAnswer.size() + quiet->receiveAll().size() < bigBytes);
}

void TestTreeServerLimits::longestIdleConnectionIsReplaced()
{
    ServerLimits limits = wideLimits();
    limits.connections = 4;
    start(limits);
    Clients clients;
    for (int i = 0; i < limits.connections; ++i)
        clients.push_back(connectClient());
    QVERIFY(isServed(*clients.front())); // is now less idle than the others
    clients.push_back(connectClient());
    QVERIFY(isServed(*clients.back()));
    const auto isEnded = [](const auto& client) { return client->isEnded(); };
    QTRY_VERIFY_WITH_TIMEOUT(clients.at(1)->isEnded(), longestMs);
    QCOMPARE(std::count_if(clients.begin(), clients.end(), isEnded), 1);
    QVERIFY(isServed(*clients.front()));
    QVERIFY(isServed(*clients.back()));
}

void TestTreeServerLimits::connectionTooManyIsRefused()
{
    ServerLimits limits = wideLimits();
    limits.connections = 2;
    start(limits);
    std::array<QByteArray, 2> answers;
    Clients clients;
    for (QByteArray& answer : answers) {
        clients.push_back(connectClient(bigRequest));
        QVERIFY(clients.back()->receive(answer));
    }
    QCOMPARE(RawClient(m_port).get("/small.txt"), QByteArray());
    for (size_t i = 0; i < answers.size(); ++i)
        QCOMPARE(RawClient::body(answers.at(i) + clients.at(i)->receiveAll()).size(), bigBytes);
}

void TestTreeServerLimits::connectionEndsWhereTheNextRequestIsUnknown_data()
{
    QTest::addColumn<QByteArray>("request");
    QTest::addColumn<int>("status");
    QTest::newRow("no request") << QByteArray("small\r\n") << 400;
    QTest::newRow("another method's body") << QByteArray("PUT /small.txt HTTP/1.1\r\n"
                                                         "Content-Length: 5\r\n\r\nother")
                                           << 405;
    QTest::newRow("body of a GET")
        << QByteArray("GET /small.txt HTTP/1.1\r\nTransfer-Encoding: chunked\r\n\r\n") << 200;
    QTest::newRow("too long a name") << "GET /" + QByteArray(9000, 'x') + " HTTP/1.1\r\n\r\n"
                                     << 414;
}

void TestTreeServerLimits::connectionEndsWhereTheNextRequestIsUnknown()
{
    QFETCH(QByteArray, request);
    QFETCH(int, status);
    start(wideLimits());
    const auto client = connectClient(request + smallRequest);
    const QByteArray answer = client->receiveAll();
    QVERIFY(client->isEnded());
    QCOMPARE(RawClient::status(answer), status);
    QCOMPARE(RawClient::field(answer, "Connection"), QByteArray("close"));
    QCOMPARE(RawClient::field(answer, "Keep-Alive"), QByteArray());
    QCOMPARE(answer.count("HTTP/1.1"), 1);
}

void TestTreeServerLimits::stopEndsEveryConnection()
{
    start(wideLimits());
    Clients clients;
    clients.push_back(connectClient());
    clients.push_back(connectClient(unfinishedRequest));
    clients.push_back(connectClient());
    QCOMPARE(RawClient::status(clients.back()->begin("/big.zip")), 200);
    clients.push_back(connectClient());
    QVERIFY(isServed(*clients.back()));
    m_server.stop();
    for (const auto& client : clients) {
        client->receiveAll();
        QVERIFY(client->isEnded());
    }
    QVERIFY(!RawClient(m_port).isConnected());
}

void TestTreeServerLimits::heldRequestsWait()
{
    std::atomic<int> answers{0};
    m_server.setAccessLog([&answers](const QString&) { ++answers; });
    start(wideLimits());
    m_server.setHeld(true);
    const auto client = connectClient(smallRequest);
    const auto other = connectClient(smallRequest);
    QTest::qWait(100); // in which a server that does not hold them answers
    QCOMPARE(answers.load(), 0);
    m_server.setHeld(false);
    QVERIFY(isServed(*client));
    m_server.setHeld(true);
    QVERIFY(connectClient(smallRequest)->isConnected());
    m_server.stop(); // ends also while requests are held
    m_server.setAccessLog({});
}

MV_TEST_MAIN(TestTreeServerLimits)
#include "tst_TreeServer_limits.moc"
