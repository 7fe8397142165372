// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "BrokenDownload.h"
#include "host/HostSettings.h"

/// Tests that an interrupted body is never continued with another version of the file.
class TestCurWrapperVersions : public QObject
{
    Q_OBJECT

private slots:
    void init() { hostSettings().retryPauseMs = 10; }
    void cleanup() { hostSettings() = m_settings; }

    void beginsAgain_data();
    void beginsAgain();
    void takesAWholeNewVersion_data();
    void takesAWholeNewVersion();
    void neverMixesVersions_data();
    void neverMixesVersions();
    void neverEndsShort_data();
    void neverEndsShort();
    void startingOverIsNotARetry();
    void sizeOfANewVersionCounts();
    void wholeNewVersionBreaksAsWell_data();
    void wholeNewVersionBreaksAsWell();

private:
    const HostSettings m_settings = hostSettings();
};

void TestCurWrapperVersions::beginsAgain_data()
{
    QTest::addColumn<QByteArray>("first");

    QTest::newRow("no validator") << firstHalf("Server", "plain");
    QTest::newRow("weak entity tag") << firstHalf("ETag", "W/\"v1\"");
    QTest::newRow("server without ranges") << firstHalf("ETag", tag).field("Accept-Ranges", "none");
    QTest::newRow("no byte came")
        << HttpAnswer(200).field("ETag", tag).field("Content-Length", "1000");
}

void TestCurWrapperVersions::beginsAgain()
{
    QFETCH(QByteArray, first);

    FaultServer server(inTurn({answeringAndClosing(first), newVersionForEverybody()}));
    Download download;
    QCOMPARE(download.run(server.url(QStringLiteral("/file"))), 0);
    QCOMPARE(download.content(), newVersion());
    QCOMPARE(server.requestCount(), 2);
    QVERIFY(!server.requests().at(1).fields.contains("range"));
    QVERIFY(!server.requests().at(1).fields.contains("if-range"));
}

void TestCurWrapperVersions::takesAWholeNewVersion_data()
{
    QTest::addColumn<QByteArray>("second");
    QTest::addColumn<QByteArray>("content");

    const QByteArray shorter = pattern(half / 2, 2);
    QTest::newRow("as long") << wholeNewVersion() << newVersion();
    QTest::newRow("shorter than what is there") << HttpAnswer(200).body(shorter) << shorter;
    QTest::newRow("longer") << HttpAnswer(200).body(pattern(5000, 2)) << pattern(5000, 2);
    QTest::newRow("empty") << HttpAnswer(200).body("") << QByteArray("");
    QTest::newRow("the old one from a server without ranges")
        << HttpAnswer(200).field("ETag", tag).body(oldVersion()) << oldVersion();
    QTest::newRow("in chunks with a trailer")
        << HttpAnswer(200)
               .field("Transfer-Encoding", "chunked")
               .bareBody(HttpAnswer::chunk(newVersion()) + "0\r\nExpires: never\r\n\r\n")
        << newVersion();
}

void TestCurWrapperVersions::takesAWholeNewVersion()
{
    QFETCH(QByteArray, second);
    QFETCH(QByteArray, content);

    FaultServer server(inTurn({answeringAndClosing(firstHalf("ETag", tag)), answering(second)}));
    Download download;
    QCOMPARE(download.run(server.url(QStringLiteral("/file"))), 0);
    QCOMPARE(download.content(), content);
    QCOMPARE(server.requestCount(), 2);
    QCOMPARE(server.requests().at(1).fields.value("range"), QByteArray("bytes=400-"));
}

void TestCurWrapperVersions::neverMixesVersions_data()
{
    QTest::addColumn<QByteArray>("first");
    QTest::addColumn<QByteArray>("second");

    const HttpAnswer byTag = firstHalf("ETag", tag);
    const HttpAnswer byDate = firstHalf("Last-Modified", date);
    const QByteArray after = newVersion().mid(half);
    QTest::newRow("another entity tag") << byTag << rest(newVersion()).field("ETag", "\"v2\"");
    QTest::newRow("weak entity tag") << byTag << rest(newVersion()).field("ETag", "W/\"v1\"");
    QTest::newRow("no entity tag") << byTag << rest(newVersion());
    QTest::newRow("another date") << byDate << rest(newVersion()).field("Last-Modified", laterDate);
    QTest::newRow("longer") << byTag
                            << HttpAnswer(206)
                                   .field("ETag", tag)
                                   .field("Content-Range", contentRange(half, "1001", 1000))
                                   .body(after + '+');
    QTest::newRow("shorter") << byTag
                             << HttpAnswer(206)
                                    .field("ETag", tag)
                                    .field("Content-Range", contentRange(half, "999", 998))
                                    .body(after.left(599));
    QTest::newRow("a total of one byte") << byTag
                                         << HttpAnswer(206)
                                                .field("ETag", tag)
                                                .field("Content-Range", contentRange(half, "1"))
                                                .body(after);
    QTest::newRow("another start") << byTag
                                   << HttpAnswer(206)
                                          .field("ETag", tag)
                                          .field("Content-Range", contentRange(half + 1))
                                          .body(after.mid(1));
    QTest::newRow("another start, the length as asked")
        << byTag
        << HttpAnswer(206)
               .field("ETag", tag)
               .field("Content-Range", contentRange(300, "1000", 899))
               .body(oldVersion().mid(300, 600));
    QTest::newRow("from the beginning") << byTag
                                        << HttpAnswer(206)
                                               .field("ETag", tag)
                                               .field("Content-Range", contentRange(0))
                                               .body(newVersion());
    QTest::newRow("no statement which part")
        << byTag << HttpAnswer(206).field("ETag", tag).body(after);
    QTest::newRow("a statement in another unit")
        << byTag
        << HttpAnswer(206)
               .field("ETag", tag)
               .field("Content-Range", "lines 400-999/1000")
               .body(after);
    QTest::newRow("several parts at once")
        << byTag
        << HttpAnswer(206)
               .field("ETag", tag)
               .field("Content-Type", "multipart/byteranges; boundary=x")
               .body("--x\r\n\r\n" + after + "\r\n--x--");
    QTest::newRow("no such part any more")
        << byTag << HttpAnswer(416).field("Content-Range", "bytes */100").body("gone");
}

void TestCurWrapperVersions::neverMixesVersions()
{
    QFETCH(QByteArray, first);
    QFETCH(QByteArray, second);

    FaultServer server(
        inTurn({answeringAndClosing(first), answering(second), newVersionForEverybody()}));
    Download download;
    QCOMPARE(download.run(server.url(QStringLiteral("/file"))), 0);
    QCOMPARE(download.content(), newVersion());
    QCOMPARE(server.requestCount(), 3);
    QVERIFY(!server.requests().at(2).fields.contains("range"));
    QVERIFY(!server.requests().at(2).fields.contains("if-range"));
}

void TestCurWrapperVersions::neverEndsShort_data()
{
    QTest::addColumn<QByteArray>("range");
    QTest::addColumn<int>("length");

    QTest::newRow("part of the rest") << contentRange(half, "1000", 499) << 100;
    QTest::newRow("part of the rest, total not stated") << contentRange(half, "*", 499) << 100;
    QTest::newRow("more than the rest, total not stated") << contentRange(half, "*") << 700;
}

void TestCurWrapperVersions::neverEndsShort()
{
    QFETCH(QByteArray, range);
    QFETCH(int, length);

    hostSettings().downloadRetries = 1;
    FaultServer server(inTurn({answeringAndClosing(firstHalf("ETag", tag)),
                               answering(HttpAnswer(206)
                                             .field("ETag", tag)
                                             .field("Content-Range", range)
                                             .body(pattern(length, 3))),
                               newVersionForEverybody()}));
    Download download;
    const int result = download.run(server.url(QStringLiteral("/file")));
    // Whether it gives up or starts over, it must never produce a mixture.
    if (result == 0)
        QCOMPARE(download.content(), newVersion());
    else
        QCOMPARE(result, 3);
}

void TestCurWrapperVersions::startingOverIsNotARetry()
{
    hostSettings().downloadRetries = 1;
    FaultServer server(inTurn({answeringAndClosing(firstHalf("ETag", tag)),
                               answering(HttpAnswer(416).body("gone")), newVersionForEverybody()}));
    Download download;
    QCOMPARE(download.run(server.url(QStringLiteral("/file"))), 0);
    QCOMPARE(download.content(), newVersion());
}

void TestCurWrapperVersions::sizeOfANewVersionCounts()
{
    hostSettings().maxDownloadBytes = whole;
    FaultServer server(inTurn({answeringAndClosing(firstHalf("ETag", tag)),
                               answering(HttpAnswer(200).body(pattern(whole + 1, 2)))}));
    Download download;
    QCOMPARE(download.run(server.url(QStringLiteral("/file"))), 6);
    QVERIFY2(
        download.errorText().contains(QStringLiteral("1001 bytes are announced, 1000 are allowed")),
        qPrintable(download.errorText()));
}

void TestCurWrapperVersions::wholeNewVersionBreaksAsWell_data()
{
    QTest::addColumn<QByteArray>("field");
    QTest::addColumn<QByteArray>("value");
    QTest::addColumn<QByteArray>("validator"); // of the third request; empty: it asks for the whole

    QTest::newRow("without a validator")
        << QByteArray("Server") << QByteArray("plain") << QByteArray();
    QTest::newRow("with a weak tag")
        << QByteArray("ETag") << QByteArray("W/\"v2\"") << QByteArray();
    QTest::newRow("with another tag")
        << QByteArray("ETag") << QByteArray("\"v2\"") << QByteArray("\"v2\"");
}

/// The validator of the first answer says nothing of what the second one has brought.
void TestCurWrapperVersions::wholeNewVersionBreaksAsWell()
{
    QFETCH(QByteArray, field);
    QFETCH(QByteArray, value);
    QFETCH(QByteArray, validator);

    const HttpAnswer second = HttpAnswer(200)
                                  .field(field, value)
                                  .field("Content-Length", QByteArray::number(whole))
                                  .bareBody(newVersion().left(300));
    FaultServer server(inTurn({answeringAndClosing(firstHalf("ETag", tag)),
                               answeringAndClosing(second), newVersionForEverybody()}));
    Download download;
    QCOMPARE(download.run(server.url(QStringLiteral("/file"))), 0);
    QCOMPARE(download.content(), newVersion());
    QCOMPARE(server.requestCount(), 3);
    const HttpRequest third = server.requests().at(2);
    QCOMPARE(third.fields.value("if-range"), validator);
    QCOMPARE(third.fields.value("range"),
             validator.isEmpty() ? QByteArray() : QByteArray("bytes=300-"));
}

MV_TEST_MAIN(TestCurWrapperVersions)
#include "tst_CurWrapper_versions.moc"
