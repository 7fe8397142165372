// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "Download.h"
#include "host/HostSettings.h"

#include <QElapsedTimer>

namespace tst_CurWrapper_progress {

using namespace std::chrono_literals;

namespace {

constexpr int half = 1000;

QByteArray firstHalf()
{
    return HttpAnswer(200).field("Content-Length", "2000").bareBody(pattern(half)).bytes();
}

QByteArray firstHalfInChunks()
{
    return HttpAnswer(200)
        .field("Transfer-Encoding", "chunked")
        .bareBody(HttpAnswer::chunk(pattern(half)))
        .bytes();
}

} // namespace

/// Tests when the progress callback is called, and with which numbers.
class TestCurWrapperProgress : public QObject
{
    Q_OBJECT

private slots:
    void cleanup() { hostSettings() = m_settings; }

    void callbackIsCalledWhileNothingArrives_data();
    void callbackIsCalledWhileNothingArrives();
    void lastCallHasAllBytes_data();
    void lastCallHasAllBytes();
    void totalIsUnknownInChunks();
    void callsKeepADistance();
    void callbackGetsItsUser();
    void callbackCanBeRemoved();

private:
    const HostSettings m_settings = hostSettings();
};

void TestCurWrapperProgress::callbackIsCalledWhileNothingArrives_data()
{
    QTest::addColumn<QByteArray>("before");
    QTest::addColumn<QByteArray>("after");
    QTest::addColumn<int>("received");
    QTest::addColumn<int>("total");

    const QByteArray rest = pattern(2 * half).mid(half);
    QTest::newRow("before the answer")
        << QByteArray() << HttpAnswer(200).body(pattern(2 * half)) << 0 << 0;
    QTest::newRow("in the body") << firstHalf() << rest << half << 2 * half;
    QTest::newRow("between chunks")
        << firstHalfInChunks() << HttpAnswer::chunk(rest) + HttpAnswer::lastChunk() << half << 0;
}

void TestCurWrapperProgress::callbackIsCalledWhileNothingArrives()
{
    QFETCH(QByteArray, before);
    QFETCH(QByteArray, after);
    QFETCH(int, received);
    QFETCH(int, total);

    Download download;
    std::atomic<int> calls{0};
    // Sends the rest after ten calls, or after a very long time.
    FaultServer server([&](HttpExchange& exchange) {
        exchange.send(before);
        for (int i = 0; calls < 10 && i < 1000; ++i)
            exchange.pause(10ms);
        exchange.send(after);
    });
    ProgressWatch watch(download.wrapper(), [&](const ProgressWatch::Call& call) {
        calls += server.requestCount() == 1 && call.received == received && call.total == total;
        return true;
    });
    QCOMPARE(download.run(server.url(QStringLiteral("/file"))), 0);
    QCOMPARE(download.content(), pattern(2 * half));
    QVERIFY(calls >= 10);
}

void TestCurWrapperProgress::lastCallHasAllBytes_data()
{
    QTest::addColumn<QByteArray>("answer");
    QTest::addColumn<int>("size");

    for (const int size : {0, 1, 2000000}) {
        QTest::addRow("%d bytes with a length", size)
            << HttpAnswer(200).body(pattern(size)) << size;
        QByteArray chunks = size > 0 ? HttpAnswer::chunk(pattern(size)) : QByteArray();
        chunks += HttpAnswer::lastChunk();
        QTest::addRow("%d bytes in chunks", size)
            << HttpAnswer(200).field("Transfer-Encoding", "chunked").bareBody(chunks) << size;
    }
}

void TestCurWrapperProgress::lastCallHasAllBytes()
{
    QFETCH(QByteArray, answer);
    QFETCH(int, size);

    FaultServer server(answering(answer));
    Download download;
    ProgressWatch watch(download.wrapper());
    QCOMPARE(download.run(server.url(QStringLiteral("/file"))), 0);
    QCOMPARE(watch.calls().last().received, qint64{size});
    QCOMPARE(watch.calls().last().total, qint64{size});
    qint64 received = 0;
    for (const ProgressWatch::Call& call : watch.calls()) {
        QVERIFY(call.received >= received);
        QVERIFY(call.total == 0 || call.total == size);
        received = call.received;
    }
}

void TestCurWrapperProgress::totalIsUnknownInChunks()
{
    Download download;
    std::atomic<bool> halfSeen{false};
    FaultServer server([&](HttpExchange& exchange) {
        exchange.send(firstHalfInChunks());
        for (int i = 0; !halfSeen && i < 1000; ++i)
            exchange.pause(10ms);
        exchange.send(HttpAnswer::lastChunk());
    });
    ProgressWatch watch(download.wrapper(), [&](const ProgressWatch::Call& call) {
        halfSeen = halfSeen || call.received == half;
        return true;
    });
    QCOMPARE(download.run(server.url(QStringLiteral("/file"))), 0);
    QVERIFY(watch.calls().size() >= 2);
    for (int i = 0; i + 1 < watch.calls().size(); ++i)
        QCOMPARE(watch.calls().at(i).total, qint64{0});
    QCOMPARE(watch.calls().last().total, qint64{half});
}

/// A hundred pieces within a second do not cause a hundred calls.
void TestCurWrapperProgress::callsKeepADistance()
{
    constexpr int pieces = 100;
    FaultServer server([&](HttpExchange& exchange) {
        exchange.answer(HttpAnswer(200).field("Content-Length", QByteArray::number(pieces)));
        for (int i = 0; i < pieces; ++i) {
            exchange.pause(10ms);
            exchange.send("x");
        }
    });
    Download download;
    QElapsedTimer timer;
    timer.start();
    ProgressWatch watch(download.wrapper());
    QCOMPARE(download.run(server.url(QStringLiteral("/file"))), 0);
    // The first, the last, and one for each tenth of a second that was begun.
    QVERIFY(watch.calls().size() <= timer.elapsed() / 50 + 3);
}

void TestCurWrapperProgress::callbackGetsItsUser()
{
    FaultServer server(answering(HttpAnswer(200).body("the file")));
    Download download;
    int first = 0;
    int second = 0;
    const auto count = [](qint64, qint64, void* user) {
        ++*static_cast<int*>(user);
        return true;
    };
    download.wrapper().setDownloadProgressCallback(count, &first);
    QCOMPARE(download.run(server.url(QStringLiteral("/file"))), 0);
    QVERIFY(first > 0);
    const int before = first;
    download.wrapper().setDownloadProgressCallback(count, &second);
    QCOMPARE(download.run(server.url(QStringLiteral("/file"))), 0);
    QVERIFY(second > 0);
    QCOMPARE(first, before);
}

void TestCurWrapperProgress::callbackCanBeRemoved()
{
    FaultServer server(answering(HttpAnswer(200).body("the file")));
    Download download;
    ProgressWatch watch(download.wrapper(), [](const ProgressWatch::Call&) { return false; });
    download.wrapper().setDownloadProgressCallback(nullptr, nullptr);
    QCOMPARE(download.run(server.url(QStringLiteral("/file"))), 0);
    QVERIFY(watch.calls().isEmpty());
}

MV_TEST_MAIN(TestCurWrapperProgress)

} // namespace tst_CurWrapper_progress

#include "tst_CurWrapper_progress.moc"
