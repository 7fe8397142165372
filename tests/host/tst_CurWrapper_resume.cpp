// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "Download.h"
#include "host/HostSettings.h"
#include "support/UnusualFiles.h"

#include <QDateTime>
#include <QLocale>

#include <ctime>

namespace tst_CurWrapper_resume {

namespace {

constexpr int whole = 1000;
constexpr int half = 400;

const QDateTime downloaded(QDate(2020, 5, 20), QTime(12, 0), Qt::UTC);

QByteArray httpDate(const QDateTime& time)
{
    return QLocale::c()
        .toString(time.toUTC(), QStringLiteral("ddd, dd MMM yyyy hh:mm:ss 'GMT'"))
        .toLatin1();
}

HttpAnswer rest(int from = half)
{
    return HttpAnswer(206)
        .field("Content-Range", "bytes " + QByteArray::number(from) + "-999/1000")
        .body(pattern(whole).mid(from));
}

HttpAnswer wholeNewVersion()
{
    return HttpAnswer(200).body(pattern(whole, 2));
}

/// Stores the first half under the target name, as an earlier download would have.
void putBeginning(const Download& download, const QByteArray& content = pattern(whole).left(half))
{
    CatalogueFiles::write(download.target(), content);
    QFile file(download.target());
    QVERIFY(file.open(QIODevice::ReadWrite));
    QVERIFY(file.setFileTime(downloaded, QFileDevice::FileModificationTime));
}

} // namespace

/// Tests downloads that resume from the content of the target file.
class TestCurWrapperResume : public QObject
{
    Q_OBJECT

private slots:
    void init() { hostSettings().retryPauseMs = 10; }
    void cleanup();

    void asksForTheRest_data();
    void asksForTheRest();
    void anyBeginningCounts_data();
    void anyBeginningCounts();
    void asksForTheWhole_data();
    void asksForTheWhole();
    void takesTheWholeAgain_data();
    void takesTheWholeAgain();
    void aFailureLeavesTheBeginning_data();
    void aFailureLeavesTheBeginning();
    void completeFileIsFetchedAgain();
    void goesOnWhenTheRestBreaks();
    void goesOnWhenTheServerWasUnavailable();
    void withoutResumeTheBeginningDoesNotCount();
    void aPipeIsNoBeginning();
    void datesAreInGreenwichTime_data();
    void datesAreInGreenwichTime();

private:
    const HostSettings m_settings = hostSettings();
    const QByteArray m_zone = qgetenv("TZ");
};

void TestCurWrapperResume::cleanup()
{
    hostSettings() = m_settings;
    qputenv("TZ", m_zone);
    ::tzset();
}

void TestCurWrapperResume::asksForTheRest_data()
{
    QTest::addColumn<QDateTime>("modified");
    QTest::newRow("changed long before") << downloaded.addYears(-1);
    QTest::newRow("changed just before") << downloaded.addSecs(-1);
}

void TestCurWrapperResume::asksForTheRest()
{
    QFETCH(QDateTime, modified);

    FaultServer server(inTurn({answering(rest().field("Last-Modified", httpDate(modified))),
                               answering(wholeNewVersion())}));
    Download download;
    putBeginning(download);
    QCOMPARE(download.run(server.url(QStringLiteral("/file")), true), 0);
    QCOMPARE(download.content(), pattern(whole));
    QCOMPARE(server.requestCount(), 1);
    QCOMPARE(server.requests().at(0).fields.value("range"), QByteArray("bytes=400-"));
}

void TestCurWrapperResume::anyBeginningCounts_data()
{
    QTest::addColumn<int>("length");
    QTest::newRow("one byte") << 1;
    QTest::newRow("all but one byte") << whole - 1;
}

void TestCurWrapperResume::anyBeginningCounts()
{
    QFETCH(int, length);

    FaultServer server(inTurn({answering(rest(length).field("Last-Modified", httpDate(downloaded))),
                               answering(wholeNewVersion())}));
    Download download;
    putBeginning(download, pattern(whole).left(length));
    QCOMPARE(download.run(server.url(QStringLiteral("/file")), true), 0);
    QCOMPARE(download.content(), pattern(whole));
    QCOMPARE(server.requests().at(0).fields.value("range"),
             "bytes=" + QByteArray::number(length) + '-');
}

void TestCurWrapperResume::asksForTheWhole_data()
{
    QTest::addColumn<bool>("emptyFile");
    QTest::newRow("nothing there") << false;
    QTest::newRow("an empty file there") << true;
}

void TestCurWrapperResume::asksForTheWhole()
{
    QFETCH(bool, emptyFile);

    FaultServer server(answering(wholeNewVersion()));
    Download download;
    if (emptyFile)
        CatalogueFiles::write(download.target(), "");
    QCOMPARE(download.run(server.url(QStringLiteral("/file")), true), 0);
    QCOMPARE(download.content(), pattern(whole, 2));
    QVERIFY(!server.requests().at(0).fields.contains("range"));
}

void TestCurWrapperResume::takesTheWholeAgain_data()
{
    QTest::addColumn<QByteArray>("first");
    QTest::addColumn<int>("requests");

    QTest::newRow("changed since")
        << rest().field("Last-Modified", httpDate(downloaded.addSecs(1))) << 2;
    QTest::newRow("no date") << rest() << 2;
    QTest::newRow("no date but a tag") << rest().field("ETag", "\"v2\"") << 2;
    QTest::newRow("a date that is none") << rest().field("Last-Modified", "yesterday") << 2;
    QTest::newRow("another part") << rest(half + 1).field("Last-Modified",
                                                          httpDate(downloaded.addYears(-1)))
                                  << 2;
    QTest::newRow("another part, the length as asked")
        << HttpAnswer(206)
               .field("Content-Range", "bytes 300-899/1000")
               .field("Last-Modified", httpDate(downloaded.addYears(-1)))
               .body(pattern(whole).mid(300, 600))
        << 2;
    QTest::newRow("shorter than the beginning")
        << HttpAnswer(416).field("Content-Range", "bytes */100").body("gone") << 2;
    QTest::newRow("server without ranges") << wholeNewVersion() << 1;
}

void TestCurWrapperResume::takesTheWholeAgain()
{
    QFETCH(QByteArray, first);
    QFETCH(int, requests);

    FaultServer server(inTurn({answering(first), answering(wholeNewVersion())}));
    Download download;
    putBeginning(download);
    QCOMPARE(download.run(server.url(QStringLiteral("/file")), true), 0);
    QCOMPARE(download.content(), pattern(whole, 2));
    QCOMPARE(server.requestCount(), requests);
    if (requests == 2)
        QVERIFY(!server.requests().at(1).fields.contains("range"));
}

void TestCurWrapperResume::aFailureLeavesTheBeginning_data()
{
    QTest::addColumn<QByteArray>("answer");
    QTest::addColumn<int>("result");

    const QByteArray before = httpDate(downloaded.addYears(-1));
    QTest::newRow("not found") << HttpAnswer(404).body("none") << 4;
    QTest::newRow("broken rest") << HttpAnswer(206)
                                        .field("Content-Range", "bytes 400-999/1000")
                                        .field("Last-Modified", before)
                                        .field("Content-Length", "600")
                                        .bareBody("some")
                                 << 3;
    QTest::newRow("broken whole")
        << HttpAnswer(200).field("Content-Length", "1000").bareBody("some") << 3;
    QTest::newRow("too large") << HttpAnswer(200).body(pattern(5000)) << 6;
    QTest::newRow("too large with the beginning")
        << HttpAnswer(206)
               .field("Content-Range", "bytes 400-4999/5000")
               .field("Last-Modified", before)
               .body(pattern(4600))
        << 6;
    QTest::newRow("redirect elsewhere") << redirectTo("ftp://127.0.0.1/file") << 1;
}

void TestCurWrapperResume::aFailureLeavesTheBeginning()
{
    QFETCH(QByteArray, answer);
    QFETCH(int, result);

    hostSettings().maxDownloadBytes = 4999;
    hostSettings().downloadRetries = 0;
    FaultServer server(answeringAndClosing(answer));
    Download download;
    putBeginning(download);
    QCOMPARE(download.run(server.url(QStringLiteral("/file")), true), result);
    QCOMPARE(download.content(), pattern(whole).left(half));
}

void TestCurWrapperResume::completeFileIsFetchedAgain()
{
    FaultServer server(
        inTurn({answering(HttpAnswer(416).field("Content-Range", "bytes */1000").body("")),
                answering(HttpAnswer(200).body(pattern(whole)))}));
    Download download;
    putBeginning(download, pattern(whole));
    QCOMPARE(download.run(server.url(QStringLiteral("/file")), true), 0);
    QCOMPARE(download.content(), pattern(whole));
    QCOMPARE(server.requests().at(0).fields.value("range"), QByteArray("bytes=1000-"));
}

void TestCurWrapperResume::goesOnWhenTheRestBreaks()
{
    const QByteArray date = httpDate(downloaded.addYears(-1));
    const HttpAnswer broken = HttpAnswer(206)
                                  .field("Content-Range", "bytes 400-999/1000")
                                  .field("Last-Modified", date)
                                  .field("Content-Length", "600")
                                  .bareBody(pattern(whole).mid(half, 300));
    FaultServer server(
        inTurn({answeringAndClosing(broken), answering(rest(700).field("Last-Modified", date)),
                answering(wholeNewVersion())}));
    Download download;
    putBeginning(download);
    QCOMPARE(download.run(server.url(QStringLiteral("/file")), true), 0);
    QCOMPARE(download.content(), pattern(whole));
    QCOMPARE(server.requestCount(), 2);
    QCOMPARE(server.requests().at(1).fields.value("range"), QByteArray("bytes=700-"));
    QCOMPARE(server.requests().at(1).fields.value("if-range"), date);
}

void TestCurWrapperResume::goesOnWhenTheServerWasUnavailable()
{
    FaultServer server(
        inTurn({answering(HttpAnswer(503).body("later")),
                answering(rest().field("Last-Modified", httpDate(downloaded.addYears(-1)))),
                answering(wholeNewVersion())}));
    Download download;
    putBeginning(download);
    QCOMPARE(download.run(server.url(QStringLiteral("/file")), true), 0);
    QCOMPARE(download.content(), pattern(whole));
    QCOMPARE(server.requestCount(), 2);
}

void TestCurWrapperResume::withoutResumeTheBeginningDoesNotCount()
{
    FaultServer server(answering(wholeNewVersion()));
    Download download;
    putBeginning(download);
    QCOMPARE(download.run(server.url(QStringLiteral("/file"))), 0);
    QCOMPARE(download.content(), pattern(whole, 2));
    QVERIFY(!server.requests().at(0).fields.contains("range"));
}

void TestCurWrapperResume::aPipeIsNoBeginning()
{
    if (!UnusualFiles::hasPipes)
        QSKIP("This system's folders contain no pipes.");
    FaultServer server(answering(wholeNewVersion()));
    Download download;
    UnusualFiles::makePipe(download.target());
    download.wrapper().download(server.url(QStringLiteral("/file")), download.target(), true);
    QCOMPARE(download.wrapper().result(), 0);
    QCOMPARE(download.content(), pattern(whole, 2));
    QVERIFY(!server.requests().at(0).fields.contains("range"));
}

void TestCurWrapperResume::datesAreInGreenwichTime_data()
{
    QTest::addColumn<QByteArray>("zone");
    QTest::addColumn<int>("secondsLater");
    QTest::addColumn<int>("requests");

    for (const char* zone : {"XXX-9", "XXX+9"}) {
        QTest::addRow("%s, changed before", zone) << QByteArray(zone) << -3600 << 1;
        QTest::addRow("%s, changed since", zone) << QByteArray(zone) << 3600 << 2;
    }
}

void TestCurWrapperResume::datesAreInGreenwichTime()
{
    QFETCH(QByteArray, zone);
    QFETCH(int, secondsLater);
    QFETCH(int, requests);

    qputenv("TZ", zone);
    ::tzset();
    const QByteArray date = httpDate(downloaded.addSecs(secondsLater));
    FaultServer server(
        inTurn({answering(rest().field("Last-Modified", date)), answering(wholeNewVersion())}));
    Download download;
    putBeginning(download);
    QCOMPARE(download.run(server.url(QStringLiteral("/file")), true), 0);
    QCOMPARE(server.requestCount(), requests);
}

MV_TEST_MAIN(TestCurWrapperResume)

} // namespace tst_CurWrapper_resume

#include "tst_CurWrapper_resume.moc"
