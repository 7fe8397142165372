// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "Download.h"
#include "host/HostSettings.h"
#include "SilentPort.h"

#include <QElapsedTimer>

#include <mutex>

namespace {

using Handler = FaultServer::Handler;

constexpr int longPauseMs = 60000;

HttpAnswer unavailable(int status = 503)
{
    return HttpAnswer(status).body("come back later");
}

/// Returns a body of 1000 bytes that breaks after the first 400.
HttpAnswer brokenBody()
{
    return HttpAnswer(200).field("Content-Length", "1000").bareBody(pattern(400));
}

/// Answers like another handler and records the times of the requests.
class Stopwatch
{
public:
    explicit Stopwatch(Handler handler)
        : m_handler(std::move(handler))
    {
        m_timer.start();
    }

    Handler handler()
    {
        return [this](HttpExchange& exchange) {
            {
                const std::lock_guard<std::mutex> lock(m_mutex);
                m_times.append(m_timer.elapsed());
            }
            m_handler(exchange);
        };
    }

    /// Returns whether at least this many milliseconds passed between a request and the one before.
    bool pausedBefore(int request, qint64 milliseconds) const
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        // Rounding to whole milliseconds loses one here and one in the downloader.
        return m_times.at(request) - m_times.at(request - 1) >= milliseconds - 2;
    }

private:
    Handler m_handler;
    QElapsedTimer m_timer;
    mutable std::mutex m_mutex; // guards m_times
    QVector<qint64> m_times;
};

/// Ends a download that pauses where it should not.
bool isNotWaiting(const QElapsedTimer& timer)
{
    return timer.elapsed() < longPauseMs / 12;
}

} // namespace

/// Tests what is retried, how often and after which pause.
class TestCurWrapperRetries : public QObject
{
    Q_OBJECT

private slots:
    void init() { hostSettings().retryPauseMs = 10; }
    void cleanup() { hostSettings() = m_settings; }

    void triesAgainTwice_data();
    void triesAgainTwice();
    void succeedsAtTheLastTry_data();
    void succeedsAtTheLastTry();
    void triesAsOftenAsTheSettingSays_data();
    void triesAsOftenAsTheSettingSays();
    void doesNotTryAgain_data();
    void doesNotTryAgain();
    void doesNotTryAConnectionAgain_data();
    void doesNotTryAConnectionAgain();
    void startsFromTheFirstAddressAgain();
    void pausesGrow();
    void serverCanProlongThePause();
    void serverCannotProlongThePauseBeyondTheSetting_data();
    void serverCannotProlongThePauseBeyondTheSetting();
    void serverCannotShortenThePause_data();
    void serverCannotShortenThePause();
    void ownPauseKeepsToTheLongest();
    void cancelEndsThePause();

private:
    const HostSettings m_settings = hostSettings();
};

void TestCurWrapperRetries::triesAgainTwice_data()
{
    QTest::addColumn<Handler>("handler");
    QTest::addColumn<int>("result");

    for (const int status : {502, 503, 504})
        QTest::addRow("%d", status) << answering(unavailable(status)) << 4;
    QTest::newRow("broken body") << answeringAndClosing(brokenBody()) << 3;
    QTest::newRow("no answer") << Handler([](HttpExchange& exchange) { exchange.close(); }) << 3;
    QTest::newRow("reset") << Handler([](HttpExchange& exchange) { exchange.reset(); }) << 3;
}

void TestCurWrapperRetries::triesAgainTwice()
{
    QFETCH(Handler, handler);
    QFETCH(int, result);

    FaultServer server(handler);
    Download download;
    QCOMPARE(download.run(server.url(QStringLiteral("/file"))), result);
    QCOMPARE(server.requestCount(), 3);
}

void TestCurWrapperRetries::succeedsAtTheLastTry_data()
{
    triesAgainTwice_data();
}

void TestCurWrapperRetries::succeedsAtTheLastTry()
{
    QFETCH(Handler, handler);

    FaultServer server(inTurn({handler, handler, answering(HttpAnswer(200).body("the file"))}));
    Download download;
    QCOMPARE(download.run(server.url(QStringLiteral("/file"))), 0);
    QCOMPARE(download.content(), QByteArray("the file"));
    QCOMPARE(server.requestCount(), 3);
}

void TestCurWrapperRetries::triesAsOftenAsTheSettingSays_data()
{
    QTest::addColumn<int>("retries");
    for (const int retries : {0, 1, 5})
        QTest::addRow("%d", retries) << retries;
}

void TestCurWrapperRetries::triesAsOftenAsTheSettingSays()
{
    QFETCH(int, retries);

    hostSettings().downloadRetries = retries;
    hostSettings().retryPauseMs = 1;
    FaultServer busy(answering(unavailable()));
    FaultServer broken(answeringAndClosing(brokenBody()));
    Download download;
    QCOMPARE(download.run(busy.url(QStringLiteral("/file"))), 4);
    QCOMPARE(busy.requestCount(), 1 + retries);
    QCOMPARE(download.run(broken.url(QStringLiteral("/file"))), 3);
    QCOMPARE(broken.requestCount(), 1 + retries);
}

void TestCurWrapperRetries::doesNotTryAgain_data()
{
    QTest::addColumn<int>("status");
    for (const int status : {400, 401, 403, 404, 408, 410, 425, 429, 500, 501, 505, 507})
        QTest::addRow("%d", status) << status;
}

void TestCurWrapperRetries::doesNotTryAgain()
{
    QFETCH(int, status);

    FaultServer server(answering(HttpAnswer(status).field("Retry-After", "0").body("no")));
    Download download;
    QCOMPARE(download.run(server.url(QStringLiteral("/file"))), 4);
    QCOMPARE(server.requestCount(), 1);
}

void TestCurWrapperRetries::doesNotTryAConnectionAgain_data()
{
    QTest::addColumn<QString>("url");
    QTest::newRow("refused")
        << QStringLiteral("http://127.0.0.1:%1/").arg(FaultServer::refusingPort());
    QTest::newRow("unknown host") << QStringLiteral("http://does-not-exist.invalid/");
    QTest::newRow("never stands") << QString();
}

void TestCurWrapperRetries::doesNotTryAConnectionAgain()
{
    QFETCH(QString, url);

    if (url.isEmpty() && !SilentPort::isPossible)
        QSKIP("This system refuses what it cannot queue.");
    const SilentPort silent;
    hostSettings().connectTimeoutMs = 200;
    hostSettings().retryPauseMs = longPauseMs;
    hostSettings().retryPauseMaxMs = longPauseMs;
    QElapsedTimer timer;
    timer.start();
    Download download;
    ProgressWatch watch(download.wrapper(),
                        [&](const ProgressWatch::Call&) { return isNotWaiting(timer); });
    QCOMPARE(download.run(url.isEmpty() ? silent.url(QStringLiteral("/")) : url), 3);
}

void TestCurWrapperRetries::startsFromTheFirstAddressAgain()
{
    FaultServer server(
        inTurn({answering(redirectTo("/there")), answering(unavailable()),
                answering(redirectTo("/elsewhere")), answering(HttpAnswer(200).body("the file"))}));
    Download download;
    QCOMPARE(download.run(server.url(QStringLiteral("/here"))), 0);
    QByteArrayList targets;
    const QVector<HttpRequest> requests = server.requests();
    for (const HttpRequest& request : requests)
        targets.append(request.target);
    QCOMPARE(targets, QByteArrayList({"/here", "/there", "/here", "/elsewhere"}));
}

void TestCurWrapperRetries::pausesGrow()
{
    hostSettings().retryPauseMs = 100;
    hostSettings().downloadRetries = 3;
    Stopwatch watch(answering(unavailable()));
    FaultServer server(watch.handler());
    Download download;
    QCOMPARE(download.run(server.url(QStringLiteral("/file"))), 4);
    QVERIFY(watch.pausedBefore(1, 100));
    QVERIFY(watch.pausedBefore(2, 200));
    QVERIFY(watch.pausedBefore(3, 400));
}

void TestCurWrapperRetries::serverCanProlongThePause()
{
    Stopwatch watch(inTurn({answering(unavailable().field("Retry-After", "1")),
                            answering(HttpAnswer(200).body("the file"))}));
    FaultServer server(watch.handler());
    Download download;
    QCOMPARE(download.run(server.url(QStringLiteral("/file"))), 0);
    QVERIFY(watch.pausedBefore(1, 1000));
}

void TestCurWrapperRetries::serverCannotProlongThePauseBeyondTheSetting_data()
{
    QTest::addColumn<QByteArray>("retryAfter");
    QTest::newRow("an hour") << QByteArray("3600");
    QTest::newRow("the largest number") << QByteArray("2147483647");
    QTest::newRow("a number beyond all") << QByteArray("99999999999999999999");
}

void TestCurWrapperRetries::serverCannotProlongThePauseBeyondTheSetting()
{
    QFETCH(QByteArray, retryAfter);

    hostSettings().retryPauseMaxMs = 300;
    FaultServer server(inTurn({answering(unavailable().field("Retry-After", retryAfter)),
                               answering(HttpAnswer(200).body("the file"))}));
    Download download;
    QElapsedTimer timer;
    timer.start();
    ProgressWatch watch(download.wrapper(),
                        [&](const ProgressWatch::Call&) { return isNotWaiting(timer); });
    QCOMPARE(download.run(server.url(QStringLiteral("/file"))), 0);
    if (retryAfter == "3600")
        QVERIFY(timer.elapsed() >= 300);
}

void TestCurWrapperRetries::serverCannotShortenThePause_data()
{
    QTest::addColumn<QByteArray>("retryAfter");
    QTest::newRow("at once") << QByteArray("0");
    QTest::newRow("in the past") << QByteArray("-5");
    QTest::newRow("a date") << QByteArray("Wed, 21 Oct 2015 07:28:00 GMT");
    QTest::newRow("words") << QByteArray("soon");
    QTest::newRow("empty") << QByteArray("");
}

void TestCurWrapperRetries::serverCannotShortenThePause()
{
    QFETCH(QByteArray, retryAfter);

    hostSettings().retryPauseMs = 200;
    Stopwatch watch(inTurn({answering(unavailable().field("Retry-After", retryAfter)),
                            answering(HttpAnswer(200).body("the file"))}));
    FaultServer server(watch.handler());
    Download download;
    QCOMPARE(download.run(server.url(QStringLiteral("/file"))), 0);
    QVERIFY(watch.pausedBefore(1, 200));
}

void TestCurWrapperRetries::ownPauseKeepsToTheLongest()
{
    hostSettings().retryPauseMs = longPauseMs;
    hostSettings().retryPauseMaxMs = 20;
    FaultServer server(answering(unavailable()));
    Download download;
    QElapsedTimer timer;
    timer.start();
    ProgressWatch watch(download.wrapper(),
                        [&](const ProgressWatch::Call&) { return isNotWaiting(timer); });
    QCOMPARE(download.run(server.url(QStringLiteral("/file"))), 4);
    QCOMPARE(server.requestCount(), 3);
}

void TestCurWrapperRetries::cancelEndsThePause()
{
    hostSettings().retryPauseMs = longPauseMs;
    hostSettings().retryPauseMaxMs = longPauseMs;
    FaultServer server(answering(unavailable()));
    Download download;
    // Called on the downloading thread, some time into the pause.
    int callsInThePause = 0;
    ProgressWatch watch(download.wrapper(), [&](const ProgressWatch::Call&) {
        callsInThePause += server.requestCount();
        if (callsInThePause == 5)
            download.wrapper().cancel();
        return true;
    });
    QElapsedTimer timer;
    timer.start();
    QCOMPARE(download.run(server.url(QStringLiteral("/file"))), 5);
    QVERIFY(timer.elapsed() < 5000);
    QCOMPARE(server.requestCount(), 1);
}

MV_TEST_MAIN(TestCurWrapperRetries)
#include "tst_CurWrapper_retries.moc"
