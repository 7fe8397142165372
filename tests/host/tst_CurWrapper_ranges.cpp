// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "BrokenDownload.h"
#include "host/HostSettings.h"

/// Tests that an interrupted body resumes where it broke.
class TestCurWrapperRanges : public QObject
{
    Q_OBJECT

private slots:
    void init() { hostSettings().retryPauseMs = 10; }
    void cleanup() { hostSettings() = m_settings; }

    void goesOnByEntityTag();
    void goesOnByDate_data();
    void goesOnByDate();
    void goesOnByTheTagIfThereAreBoth();
    void goesOnInSeveralParts();
    void goesOnAfterAnUnavailableServer();
    void goesOnInChunks();
    void goesOnBehindARedirect();
    void goesOnWithoutATotal();
    void goesOnWhereNoTotalWasEverStated();
    void goesOnAfterAPartThatIsTooShort_data();
    void goesOnAfterAPartThatIsTooShort();
    void allowedSizeCountsTheWhole_data();
    void allowedSizeCountsTheWhole();
    void progressCountsTheWhole();

private:
    const HostSettings m_settings = hostSettings();
};

void TestCurWrapperRanges::goesOnByEntityTag()
{
    FaultServer server(inTurn({answeringAndClosing(firstHalf("ETag", tag)),
                               answering(rest().field("ETag", tag)), newVersionForEverybody()}));
    Download download;
    QCOMPARE(download.run(server.url(QStringLiteral("/file"))), 0);
    QCOMPARE(download.content(), oldVersion());
    QCOMPARE(server.requestCount(), 2);
    const HttpRequest second = server.requests().at(1);
    QCOMPARE(second.fields.value("range"), QByteArray("bytes=400-"));
    QCOMPARE(second.fields.value("if-range"), tag);
    QCOMPARE(second.fields.value("accept-encoding"), QByteArray("identity"));
}

void TestCurWrapperRanges::goesOnByDate_data()
{
    QTest::addColumn<QByteArray>("second");
    QTest::newRow("date repeated") << rest().field("Last-Modified", date);
    QTest::newRow("date left out") << rest();
}

void TestCurWrapperRanges::goesOnByDate()
{
    QFETCH(QByteArray, second);

    FaultServer server(inTurn({answeringAndClosing(firstHalf("Last-Modified", date)),
                               answering(second), newVersionForEverybody()}));
    Download download;
    QCOMPARE(download.run(server.url(QStringLiteral("/file"))), 0);
    QCOMPARE(download.content(), oldVersion());
    QCOMPARE(server.requestCount(), 2);
    QCOMPARE(server.requests().at(1).fields.value("range"), QByteArray("bytes=400-"));
    QCOMPARE(server.requests().at(1).fields.value("if-range"), date);
}

void TestCurWrapperRanges::goesOnByTheTagIfThereAreBoth()
{
    const HttpAnswer both = HttpAnswer(200)
                                .field("Last-Modified", date)
                                .field("ETag", tag)
                                .field("Content-Length", "1000")
                                .bareBody(oldVersion().left(half));
    FaultServer server(inTurn({answeringAndClosing(both), answering(rest().field("ETag", tag)),
                               newVersionForEverybody()}));
    Download download;
    QCOMPARE(download.run(server.url(QStringLiteral("/file"))), 0);
    QCOMPARE(download.content(), oldVersion());
    QCOMPARE(server.requests().at(1).fields.value("if-range"), tag);
}

void TestCurWrapperRanges::goesOnInSeveralParts()
{
    const HttpAnswer secondPart = HttpAnswer(206)
                                      .field("ETag", tag)
                                      .field("Content-Range", contentRange(half))
                                      .field("Content-Length", "600")
                                      .bareBody(oldVersion().mid(half, 300));
    FaultServer server(
        inTurn({answeringAndClosing(firstHalf("ETag", tag)), answeringAndClosing(secondPart),
                answering(rest(oldVersion(), 700).field("ETag", tag)), newVersionForEverybody()}));
    Download download;
    QCOMPARE(download.run(server.url(QStringLiteral("/file"))), 0);
    QCOMPARE(download.content(), oldVersion());
    QCOMPARE(server.requestCount(), 3);
    QCOMPARE(server.requests().at(2).fields.value("range"), QByteArray("bytes=700-"));
    QCOMPARE(server.requests().at(2).fields.value("if-range"), tag);
}

void TestCurWrapperRanges::goesOnAfterAnUnavailableServer()
{
    FaultServer server(inTurn({answeringAndClosing(firstHalf("ETag", tag)),
                               answering(HttpAnswer(503).field("ETag", "\"page\"").body("later")),
                               answering(rest().field("ETag", tag)), newVersionForEverybody()}));
    Download download;
    QCOMPARE(download.run(server.url(QStringLiteral("/file"))), 0);
    QCOMPARE(download.content(), oldVersion());
    QCOMPARE(server.requests().at(2).fields.value("range"), QByteArray("bytes=400-"));
    QCOMPARE(server.requests().at(2).fields.value("if-range"), tag);
}

void TestCurWrapperRanges::goesOnInChunks()
{
    const HttpAnswer first = HttpAnswer(200)
                                 .field("ETag", tag)
                                 .field("Transfer-Encoding", "chunked")
                                 .bareBody(HttpAnswer::chunk(oldVersion().left(half)));
    const HttpAnswer second =
        HttpAnswer(206)
            .field("ETag", tag)
            .field("Content-Range", contentRange(half))
            .field("Transfer-Encoding", "chunked")
            .bareBody(HttpAnswer::chunk(oldVersion().mid(half)) + HttpAnswer::lastChunk());
    FaultServer server(
        inTurn({answeringAndClosing(first), answering(second), newVersionForEverybody()}));
    Download download;
    QCOMPARE(download.run(server.url(QStringLiteral("/file"))), 0);
    QCOMPARE(download.content(), oldVersion());
    QCOMPARE(server.requests().at(1).fields.value("range"), QByteArray("bytes=400-"));
}

void TestCurWrapperRanges::goesOnBehindARedirect()
{
    FaultServer server(
        inTurn({answering(redirectTo("/there")), answeringAndClosing(firstHalf("ETag", tag)),
                answering(redirectTo("/there")), answering(rest().field("ETag", tag)),
                newVersionForEverybody()}));
    Download download;
    QCOMPARE(download.run(server.url(QStringLiteral("/here"))), 0);
    QCOMPARE(download.content(), oldVersion());
    QCOMPARE(server.requests().at(3).fields.value("range"), QByteArray("bytes=400-"));
}

void TestCurWrapperRanges::goesOnWithoutATotal()
{
    const HttpAnswer second = HttpAnswer(206)
                                  .field("ETag", tag)
                                  .field("Content-Range", contentRange(half, "*"))
                                  .body(oldVersion().mid(half));
    FaultServer server(inTurn({answeringAndClosing(firstHalf("ETag", tag)), answering(second),
                               newVersionForEverybody()}));
    Download download;
    QCOMPARE(download.run(server.url(QStringLiteral("/file"))), 0);
    QCOMPARE(download.content(), oldVersion());
    QCOMPARE(server.requestCount(), 2);
}

/// The length of the part tells where the whole ends.
void TestCurWrapperRanges::goesOnWhereNoTotalWasEverStated()
{
    const HttpAnswer first = HttpAnswer(200)
                                 .field("ETag", tag)
                                 .field("Transfer-Encoding", "chunked")
                                 .bareBody(HttpAnswer::chunk(oldVersion().left(half)));
    const HttpAnswer second = HttpAnswer(206)
                                  .field("ETag", tag)
                                  .field("Content-Range", contentRange(half, "*"))
                                  .body(oldVersion().mid(half));
    FaultServer server(
        inTurn({answeringAndClosing(first), answering(second), newVersionForEverybody()}));
    Download download;
    QCOMPARE(download.run(server.url(QStringLiteral("/file"))), 0);
    QCOMPARE(download.content(), oldVersion());
    QCOMPARE(server.requestCount(), 2);
}

void TestCurWrapperRanges::goesOnAfterAPartThatIsTooShort_data()
{
    QTest::addColumn<QByteArray>("total");
    QTest::newRow("total stated") << QByteArray("1000");
    QTest::newRow("total not stated") << QByteArray("*");
}

void TestCurWrapperRanges::goesOnAfterAPartThatIsTooShort()
{
    QFETCH(QByteArray, total);

    const HttpAnswer middle = HttpAnswer(206)
                                  .field("ETag", tag)
                                  .field("Content-Range", contentRange(half, total, 699))
                                  .body(oldVersion().mid(half, 300));
    FaultServer server(
        inTurn({answeringAndClosing(firstHalf("ETag", tag)), answering(middle),
                answering(rest(oldVersion(), 700).field("ETag", tag)), newVersionForEverybody()}));
    Download download;
    QCOMPARE(download.run(server.url(QStringLiteral("/file"))), 0);
    QCOMPARE(download.content(), oldVersion());
    QCOMPARE(server.requestCount(), 3);
}

void TestCurWrapperRanges::allowedSizeCountsTheWhole_data()
{
    QTest::addColumn<int>("allowed");
    QTest::addColumn<QByteArray>("total");
    QTest::addColumn<int>("result");
    for (const char* total : {"1000", "*"}) {
        QTest::addRow("the whole, total %s", total) << whole << QByteArray(total) << 0;
        QTest::addRow("one less, total %s", total) << whole - 1 << QByteArray(total) << 6;
    }
}

void TestCurWrapperRanges::allowedSizeCountsTheWhole()
{
    QFETCH(int, allowed);
    QFETCH(QByteArray, total);
    QFETCH(int, result);

    hostSettings().maxDownloadBytes = allowed;
    // The first answer is chunked, so that only the partial answer reveals the size.
    const HttpAnswer first = HttpAnswer(200)
                                 .field("ETag", tag)
                                 .field("Transfer-Encoding", "chunked")
                                 .bareBody(HttpAnswer::chunk(oldVersion().left(half)));
    const HttpAnswer second = HttpAnswer(206)
                                  .field("ETag", tag)
                                  .field("Content-Range", contentRange(half, total))
                                  .body(oldVersion().mid(half));
    FaultServer server(inTurn({answeringAndClosing(first), answering(second)}));
    Download download;
    QCOMPARE(download.run(server.url(QStringLiteral("/file"))), result);
    QCOMPARE(server.requestCount(), 2);
    const bool isAnnounced =
        download.errorText().contains(QStringLiteral("1000 bytes are announced, 999 are allowed"));
    QCOMPARE(isAnnounced, result == 6);
}

void TestCurWrapperRanges::progressCountsTheWhole()
{
    hostSettings().retryPauseMs = 250;
    FaultServer server(inTurn({answeringAndClosing(firstHalf("ETag", tag)),
                               answering(rest().field("ETag", tag)), newVersionForEverybody()}));
    Download download;
    ProgressWatch watch(download.wrapper());
    QCOMPARE(download.run(server.url(QStringLiteral("/file"))), 0);
    qint64 received = 0;
    for (const ProgressWatch::Call& call : watch.calls()) {
        QVERIFY(call.received >= received);
        QVERIFY(call.total == 0 || call.total == whole);
        received = call.received;
    }
    QCOMPARE(received, qint64{whole});
    QCOMPARE(watch.calls().last().total, qint64{whole});
}

MV_TEST_MAIN(TestCurWrapperRanges)
#include "tst_CurWrapper_ranges.moc"
