// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "Download.h"
#include "host/HostSettings.h"
#include "SilentPort.h"

#include <algorithm>
#include <thread>

namespace tst_CurWrapper_cancel {

using namespace std::chrono_literals;

namespace {

using Handler = FaultServer::Handler;
using Clock = std::chrono::steady_clock;

constexpr int half = 1000;
constexpr auto poll = 5ms;

/// Calls cancel() from a thread of its own as soon as a condition holds.
class Canceller
{
public:
    Canceller(CurWrapper& wrapper, std::function<bool()> condition)
        : m_thread([this, &wrapper, condition = std::move(condition)] {
            while (!m_stopping && !condition())
                std::this_thread::sleep_for(poll);
            m_time = Clock::now();
            if (!m_stopping)
                wrapper.cancel();
        })
    {
    }

    ~Canceller() { join(); }
    Q_DISABLE_COPY_MOVE(Canceller)

    /// Returns the time since cancel() was called.
    std::chrono::milliseconds age()
    {
        const Clock::time_point now = Clock::now();
        join();
        return std::chrono::duration_cast<std::chrono::milliseconds>(now - m_time);
    }

private:
    void join()
    {
        m_stopping = true;
        if (m_thread.joinable())
            m_thread.join();
    }

    std::atomic<bool> m_stopping{false};
    Clock::time_point m_time; // owned by the thread until it is joined
    std::thread m_thread;
};

Handler sendingAndStalling(const QByteArray& bytes)
{
    return [bytes](HttpExchange& exchange) {
        exchange.send(bytes);
        exchange.stall();
    };
}

QByteArray headAnnouncing(int status, int length)
{
    return HttpAnswer(status).field("Content-Length", QByteArray::number(length)).bytes();
}

QByteArray firstHalf()
{
    return headAnnouncing(200, 2 * half) + pattern(half);
}

QByteArray firstHalfInChunks()
{
    return HttpAnswer(200)
        .field("Transfer-Encoding", "chunked")
        .bareBody(HttpAnswer::chunk(pattern(half)))
        .bytes();
}

} // namespace

/// Tests the ways to end a download early.
class TestCurWrapperCancel : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup() { hostSettings() = m_settings; }

    void cancelEndsAStall_data();
    void cancelEndsAStall();
    void cancelEndsAConnectionThatDoesNotStand_data();
    void cancelEndsAConnectionThatDoesNotStand();
    void cancelEndsThePauseBeforeARetry();
    void cancelNeedsNoCallback();
    void cancelWakesTheDownload();
    void cancelDoesNotOutlastTheDownload();
    void cancelWithoutADownloadDoesNothing();
    void callbackEndsAStall_data();
    void callbackEndsAStall();
    void callbackEndsAtItsFirstCall();
    void callbackEndsAtItsLastCall();
    void manyObjectsAtOnce();
    void manyCancelsAtOnce();

private:
    const HostSettings m_settings = hostSettings();
};

void TestCurWrapperCancel::init()
{
    hostSettings().stallTimeoutMs = 60000;
    hostSettings().connectTimeoutMs = 60000;
    hostSettings().retryPauseMs = 10;
}

void TestCurWrapperCancel::cancelEndsAStall_data()
{
    QTest::addColumn<Handler>("handler");
    QTest::addColumn<int>("received");

    QTest::newRow("before the answer") << sendingAndStalling("") << 0;
    QTest::newRow("in the header") << sendingAndStalling("HTTP/1.1 200 OK\r\nContent-Le") << 0;
    QTest::newRow("behind the header") << sendingAndStalling(headAnnouncing(200, 100)) << 0;
    QTest::newRow("in the body") << sendingAndStalling(firstHalf()) << half;
    QTest::newRow("between chunks") << sendingAndStalling(firstHalfInChunks()) << half;
    QTest::newRow("in an error page") << sendingAndStalling(headAnnouncing(404, 100)) << 0;
    QTest::newRow("in the page of a redirect") << sendingAndStalling(
        HttpAnswer(302).field("Location", "/there").field("Content-Length", "100").bytes())
                                               << 0;
}

void TestCurWrapperCancel::cancelEndsAStall()
{
    QFETCH(Handler, handler);
    QFETCH(int, received);

    FaultServer server(handler);
    Download download;
    std::atomic<int> callsInTheStall{0};
    ProgressWatch watch(download.wrapper(), [&](const ProgressWatch::Call& call) {
        callsInTheStall += server.requestCount() == 1 && call.received == received;
        return true;
    });
    Canceller canceller(download.wrapper(), [&] { return callsInTheStall >= 3; });
    QCOMPARE(download.run(server.url(QStringLiteral("/file"))), 5);
    QVERIFY(canceller.age() < 1s);
    QVERIFY2(download.errorText().contains(
                 QStringLiteral(": cancelled (%1 bytes received;").arg(received)),
             qPrintable(download.errorText()));
    QCOMPARE(server.requestCount(), 1);
}

void TestCurWrapperCancel::cancelEndsAConnectionThatDoesNotStand_data()
{
    QTest::addColumn<bool>("secure");
    QTest::newRow("TCP") << false;
    QTest::newRow("TLS") << true;
}

void TestCurWrapperCancel::cancelEndsAConnectionThatDoesNotStand()
{
    QFETCH(bool, secure);

    if (!secure && !SilentPort::isPossible)
        QSKIP("This system refuses what it cannot queue.");
    const SilentPort silent;
    // Waits for the end of a request, which a TLS client never sends.
    FaultServer mute([](HttpExchange& exchange) { exchange.stall(); });
    const QString muteUrl = QStringLiteral("https://127.0.0.1:%1/file").arg(mute.port());
    Download download;
    std::atomic<int> calls{0};
    ProgressWatch watch(download.wrapper(), [&](const ProgressWatch::Call&) {
        calls += !secure || mute.connectionCount() == 1;
        return true;
    });
    Canceller canceller(download.wrapper(), [&] { return calls >= 3; });
    QCOMPARE(download.run(secure ? muteUrl : silent.url(QStringLiteral("/file"))), 5);
    QVERIFY(canceller.age() < 1s);
}

void TestCurWrapperCancel::cancelEndsThePauseBeforeARetry()
{
    hostSettings().retryPauseMs = 60000;
    hostSettings().retryPauseMaxMs = 60000;
    FaultServer server(answering(HttpAnswer(503).body("later")));
    Download download;
    std::atomic<int> calls{0};
    ProgressWatch watch(download.wrapper(), [&](const ProgressWatch::Call&) {
        calls += server.requestCount() == 1;
        return true;
    });
    Canceller canceller(download.wrapper(), [&] { return calls >= 4; });
    QCOMPARE(download.run(server.url(QStringLiteral("/file"))), 5);
    QVERIFY(canceller.age() < 1s);
    QCOMPARE(server.requestCount(), 1);
}

void TestCurWrapperCancel::cancelNeedsNoCallback()
{
    FaultServer server(sendingAndStalling(firstHalf()));
    Download download;
    Canceller canceller(download.wrapper(), [&] { return server.requestCount() == 1; });
    QCOMPARE(download.run(server.url(QStringLiteral("/file"))), 5);
    QVERIFY(canceller.age() < 1s);
}

/// Each cancel comes right after the download has asked whether to go on. It waits 50 ms before it
/// asks again, so at least one of several cancels ends it sooner only if it is woken.
void TestCurWrapperCancel::cancelWakesTheDownload()
{
    constexpr int rounds = 10;
    FaultServer server(sendingAndStalling(""));
    Download download;
    std::chrono::milliseconds shortest = 1h;
    for (int round = 1; round <= rounds; ++round) {
        std::atomic<bool> asked{false};
        ProgressWatch watch(download.wrapper(), [&](const ProgressWatch::Call&) {
            asked = server.requestCount() == round;
            return true;
        });
        Canceller canceller(download.wrapper(), [&] { return asked.load(); });
        QCOMPARE(download.run(server.url(QStringLiteral("/file"))), 5);
        shortest = std::min(shortest, canceller.age());
    }
    QVERIFY2(shortest < 25ms, QByteArray::number(qint64(shortest.count())).constData());
}

void TestCurWrapperCancel::cancelDoesNotOutlastTheDownload()
{
    FaultServer server(
        inTurn({sendingAndStalling(firstHalf()), answering(HttpAnswer(200).body("the file"))}));
    Download download;
    {
        Canceller canceller(download.wrapper(), [&] { return server.requestCount() == 1; });
        QCOMPARE(download.run(server.url(QStringLiteral("/file"))), 5);
    }
    QCOMPARE(download.run(server.url(QStringLiteral("/file"))), 0);
    QCOMPARE(download.content(), QByteArray("the file"));
}

void TestCurWrapperCancel::cancelWithoutADownloadDoesNothing()
{
    FaultServer server(answering(HttpAnswer(200).body("the file")));
    Download download;
    download.wrapper().cancel();
    QCOMPARE(download.wrapper().result(), 0);
    QCOMPARE(download.run(server.url(QStringLiteral("/file"))), 0);
    for (int i = 0; i < 100; ++i)
        download.wrapper().cancel();
    QCOMPARE(download.wrapper().result(), 0);
    QCOMPARE(download.run(server.url(QStringLiteral("/file"))), 0);
    QCOMPARE(download.content(), QByteArray("the file"));
}

void TestCurWrapperCancel::callbackEndsAStall_data()
{
    cancelEndsAStall_data();
}

void TestCurWrapperCancel::callbackEndsAStall()
{
    QFETCH(Handler, handler);
    QFETCH(int, received);

    FaultServer server(handler);
    Download download;
    int callsInTheStall = 0;
    // Refuses once only, which must suffice.
    ProgressWatch watch(download.wrapper(), [&](const ProgressWatch::Call& call) {
        callsInTheStall += server.requestCount() == 1 && call.received == received;
        return callsInTheStall != 3;
    });
    // Otherwise an ignored refusal would wait for the end of the stall.
    Canceller rescue(download.wrapper(), [&, start = Clock::now()] {
        return Clock::now() - start > 5s || server.requestCount() > 1;
    });
    QCOMPARE(download.run(server.url(QStringLiteral("/file"))), 5);
    QCOMPARE(callsInTheStall, 3);
    QCOMPARE(server.requestCount(), 1);
}

void TestCurWrapperCancel::callbackEndsAtItsFirstCall()
{
    FaultServer server(answering(HttpAnswer(200).body("the file")));
    Download download;
    ProgressWatch watch(download.wrapper(), [](const ProgressWatch::Call&) { return false; });
    QCOMPARE(download.run(server.url(QStringLiteral("/file"))), 5);
    QCOMPARE(watch.calls().size(), 1);
}

void TestCurWrapperCancel::callbackEndsAtItsLastCall()
{
    FaultServer server(answering(HttpAnswer(200).body("the file")));
    Download download;
    ProgressWatch watch(download.wrapper(),
                        [](const ProgressWatch::Call& call) { return call.received < 8; });
    QCOMPARE(download.run(server.url(QStringLiteral("/file"))), 5);
    QVERIFY2(download.errorText().contains(QStringLiteral(": cancelled (8 bytes received;")),
             qPrintable(download.errorText()));
}

void TestCurWrapperCancel::manyObjectsAtOnce()
{
    constexpr int threadCount = 8;
    constexpr int filesEach = 25;
    const auto body = [](const QByteArray& target) {
        return pattern(20000, target.mid(1).toUInt());
    };
    FaultServer server([&](HttpExchange& exchange) {
        exchange.answer(HttpAnswer(200).body(body(exchange.request().target)));
    });
    const Download common;
    std::atomic<int> failures{0};
    std::vector<std::thread> threads;
    threads.reserve(threadCount);
    for (int thread = 0; thread < threadCount; ++thread) {
        threads.emplace_back([&, thread] {
            for (int i = 0; i < filesEach; ++i) {
                // A new object each time, since each looks for the remains of a kill in the same
                // folder.
                CurWrapper wrapper;
                const QString name = QStringLiteral("/%1").arg(thread * filesEach + i);
                wrapper.download(server.url(name), common.folder() + name, false);
                failures += wrapper.result() != 0;
            }
        });
    }
    for (std::thread& thread : threads)
        thread.join();
    QCOMPARE(failures.load(), 0);
    const QStringList files = common.files();
    QCOMPARE(files.size(), threadCount * filesEach);
    for (const QString& name : files) {
        QCOMPARE(CatalogueFiles::read(common.folder() + QLatin1Char('/') + name),
                 body('/' + name.toLatin1()));
    }
}

void TestCurWrapperCancel::manyCancelsAtOnce()
{
    FaultServer server([](HttpExchange& exchange) {
        if (exchange.request().target == "/stall")
            exchange.stall();
        else
            exchange.answer(HttpAnswer(200).body("the file"));
    });
    Download download;
    {
        constexpr int cancellerCount = 4;
        std::vector<std::unique_ptr<Canceller>> cancellers;
        cancellers.reserve(cancellerCount);
        for (int i = 0; i < cancellerCount; ++i) {
            cancellers.push_back(std::make_unique<Canceller>(download.wrapper(), [&] {
                download.wrapper().cancel();
                return false;
            }));
        }
        for (int i = 0; i < 20; ++i)
            QCOMPARE(download.run(server.url(QStringLiteral("/stall"))), 5);
    }
    QCOMPARE(download.run(server.url(QStringLiteral("/file"))), 0);
}

MV_TEST_MAIN(TestCurWrapperCancel)

} // namespace tst_CurWrapper_cancel

#include "tst_CurWrapper_cancel.moc"
