// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "RawClient.h"
#include "server/TreeServer.h"
#include "support/CatalogueFiles.h"
#include "support/TestMain.h"
#include "support/TestTexts.h"
#include "support/UnusualFiles.h"

#include <QDateTime>
#include <QFile>
#include <QMutex>
#include <QUrl>

/// Tests the in-process server: what it sends, to whom it sends less, and what it withholds.
class TestTreeServer : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();

    void wholeFile();
    void typeFollowsTheName_data();
    void typeFollowsTheName();
    void emptyFile();
    void largeFile();
    void headHasNoBody();
    void otherMethodsAreRefused();
    void part_data();
    void part();
    void partBeyondTheEnd();
    void malformedPart_data();
    void malformedPart();
    void headHasNoPart();
    void partOfAnotherFileIsNotSent_data();
    void partOfAnotherFileIsNotSent();
    void knownFileIsNotSent_data();
    void knownFileIsNotSent();
    void tagChangesWithTheFile();
    void contentsAreKeptForAYear_data();
    void contentsAreKeptForAYear();
    void versionFilesAreNotKept_data();
    void versionFilesAreNotKept();
    void nothingOutsideIsServed_data();
    void nothingOutsideIsServed();
    void linkWithinTheTreeIsServed();

private:
    QByteArray get(const QByteArray& target, const QByteArray& fields = QByteArray(),
                   const QByteArray& method = "GET") const
    {
        return RawClient(static_cast<quint16>(QUrl(m_server.url()).port()))
            .get(target, fields, method);
    }
    QByteArray fieldOf(const char* name) const { return RawClient::field(get("/ten.txt"), name); }
    static QString tree() { return TestHome::path() + text("/base/tree"); }

    TreeServer m_server;
};

void TestTreeServer::initTestCase()
{
    CatalogueFiles::write(tree() + text("/ten.txt"), "0123456789");
    CatalogueFiles::write(tree() + text("/empty.xml"), "");
    CatalogueFiles::write(tree() + text("/large.zip"), QByteArray(3000000, 'z') + "end");
    CatalogueFiles::write(TestHome::path() + text("/base/secret.txt"), "secret");
    QVERIFY(UnusualFiles::link(text(".."), tree() + text("/folder")));
    if (UnusualFiles::hasFileLinks) {
        QVERIFY(UnusualFiles::link(text("../secret.txt"), tree() + text("/link.txt")));
        QVERIFY(UnusualFiles::link(text("ten.txt"), tree() + text("/within.txt")));
    }
    QFile file(tree() + text("/ten.txt"));
    QVERIFY(file.open(QIODevice::ReadWrite));
    QVERIFY(file.setFileTime(QDateTime(QDate(2020, 2, 3), QTime(4, 5, 6), Qt::UTC),
                             QFile::FileModificationTime));
    QVERIFY2(m_server.start(tree()), qPrintable(m_server.errorText()));
}

void TestTreeServer::wholeFile()
{
    const QByteArray answer = get("/ten.txt");
    QCOMPARE(RawClient::status(answer), 200);
    QCOMPARE(RawClient::body(answer), QByteArray("0123456789"));
    QCOMPARE(RawClient::field(answer, "Content-Length"), QByteArray("10"));
    QCOMPARE(RawClient::field(answer, "Last-Modified"),
             QByteArray("Mon, 03 Feb 2020 04:05:06 GMT"));
    QCOMPARE(RawClient::field(answer, "Accept-Ranges"), QByteArray("bytes"));
    QCOMPARE(RawClient::field(answer, "Cache-Control"), QByteArray("no-cache"));
    QVERIFY(RawClient::field(answer, "ETag").startsWith('"'));
}

void TestTreeServer::typeFollowsTheName_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("type");
    const auto row = [](const char* name, const char* type) {
        QTest::newRow(name) << text(name) << QByteArray(type);
    };
    row("a.xml", "application/xml");
    row("a.zip", "application/zip");
    row("a.PNG", "image/png");
    row("a.jpg", "image/jpeg");
    row("a.gif", "image/gif");
    row("a.mp3", "audio/mpeg");
    row("a.json", "application/json");
    row("a", "application/octet-stream");
}

void TestTreeServer::typeFollowsTheName()
{
    QFETCH(QString, name);
    QFETCH(QByteArray, type);
    CatalogueFiles::write(tree() + text("/types/") + name, "x");
    QCOMPARE(RawClient::field(get("/types/" + name.toUtf8()), "Content-Type"), type);
}

void TestTreeServer::emptyFile()
{
    const QByteArray answer = get("/empty.xml");
    QCOMPARE(RawClient::status(answer), 200);
    QCOMPARE(RawClient::body(answer), QByteArray());
    QCOMPARE(RawClient::field(answer, "Content-Length"), QByteArray("0"));
}

void TestTreeServer::largeFile()
{
    const QByteArray body = RawClient::body(get("/large.zip"));
    QCOMPARE(body.size(), 3000003);
    QVERIFY(body.endsWith("zend"));
}

void TestTreeServer::headHasNoBody()
{
    const QByteArray answer = get("/ten.txt", {}, "HEAD");
    QCOMPARE(RawClient::status(answer), 200);
    QCOMPARE(RawClient::body(answer), QByteArray());
    QCOMPARE(RawClient::field(answer, "ETag"), fieldOf("ETag"));
    QCOMPARE(RawClient::field(answer, "Content-Length"), QByteArray("10"));
    QCOMPARE(answer.count("Accept-Ranges"), 1);
}

void TestTreeServer::otherMethodsAreRefused()
{
    for (const char* method : {"PUT", "POST", "DELETE"}) {
        const int status = RawClient::status(get("/ten.txt", "Content-Length: 0\r\n", method));
        QVERIFY2(status >= 400, method);
    }
    QCOMPARE(CatalogueFiles::read(tree() + text("/ten.txt")), QByteArray("0123456789"));
}

void TestTreeServer::part_data()
{
    QTest::addColumn<QByteArray>("range");
    QTest::addColumn<QByteArray>("contentRange");
    QTest::addColumn<QByteArray>("body");
    const auto row = [](const char* range, const char* contentRange, const char* body) {
        QTest::newRow(range) << QByteArray(range) << QByteArray(contentRange) << QByteArray(body);
    };
    row("bytes=0-0", "bytes 0-0/10", "0");
    row("bytes=3-5", "bytes 3-5/10", "345");
    row("bytes=7-", "bytes 7-9/10", "789");
    row("bytes=-2", "bytes 8-9/10", "89");
    row("bytes=8-100", "bytes 8-9/10", "89");
    row("bytes=-100", "bytes 0-9/10", "0123456789");
    row("bytes=9-9", "bytes 9-9/10", "9");
}

void TestTreeServer::part()
{
    QFETCH(QByteArray, range);
    QFETCH(QByteArray, contentRange);
    QFETCH(QByteArray, body);
    const QByteArray answer = get("/ten.txt", "Range: " + range + "\r\n");
    QCOMPARE(RawClient::status(answer), 206);
    QCOMPARE(RawClient::field(answer, "Content-Range"), contentRange);
    QCOMPARE(RawClient::body(answer), body);
    QCOMPARE(RawClient::field(answer, "Content-Length"), QByteArray::number(body.size()));
    QCOMPARE(RawClient::field(answer, "ETag"), fieldOf("ETag"));
}

void TestTreeServer::partBeyondTheEnd()
{
    for (const char* range : {"bytes=10-", "bytes=1000-2000"}) {
        const QByteArray answer = get("/ten.txt", QByteArray("Range: ") + range + "\r\n");
        QCOMPARE(RawClient::status(answer), 416);
        QCOMPARE(RawClient::field(answer, "Content-Range"), QByteArray("bytes */10"));
        QCOMPARE(RawClient::body(answer), QByteArray());
    }
    QCOMPARE(RawClient::status(get("/empty.xml", "Range: bytes=0-\r\n")), 416);
    QCOMPARE(RawClient::body(get("/ten.txt", "Range: bytes=0-1,4-5\r\n")),
             QByteArray("0123456789"));
}

void TestTreeServer::malformedPart_data()
{
    QTest::addColumn<QByteArray>("range");
    for (const char* range : {"bytes=x", "bytes=5-3", "bytes=", "bytes=-", "bytes=1-2-3",
                              "bytes=99999999999999999999-", "lines=1-2", "1-2"})
        QTest::newRow(range) << QByteArray(range);
}

/// The server must neither pass off part of the file as the answer nor stop.
void TestTreeServer::malformedPart()
{
    QFETCH(QByteArray, range);
    const QByteArray answer = get("/ten.txt", "Range: " + range + "\r\n");
    QVERIFY2(RawClient::status(answer) == 416
                 || (RawClient::status(answer) == 200
                     && RawClient::body(answer) == QByteArray("0123456789")),
             answer.constData());
    QCOMPARE(RawClient::body(get("/ten.txt")), QByteArray("0123456789"));
}

void TestTreeServer::headHasNoPart()
{
    const QByteArray answer = get("/ten.txt", "Range: bytes=3-5\r\n", "HEAD");
    QCOMPARE(RawClient::status(answer), 200);
    QCOMPARE(RawClient::field(answer, "Content-Length"), QByteArray("10"));
    QCOMPARE(RawClient::field(answer, "Content-Range"), QByteArray());
    QCOMPARE(RawClient::body(answer), QByteArray());
}

void TestTreeServer::partOfAnotherFileIsNotSent_data()
{
    QTest::addColumn<QByteArray>("condition");
    QTest::addColumn<int>("status");
    QTest::newRow("same tag") << fieldOf("ETag") << 206;
    QTest::newRow("same date") << fieldOf("Last-Modified") << 206;
    QTest::newRow("other tag") << QByteArray("\"other\"") << 200;
    QTest::newRow("weak tag") << "W/" + fieldOf("ETag") << 200;
    QTest::newRow("other date") << QByteArray("Mon, 03 Feb 2020 04:05:07 GMT") << 200;
}

void TestTreeServer::partOfAnotherFileIsNotSent()
{
    QFETCH(QByteArray, condition);
    QFETCH(int, status);
    const QByteArray answer = get("/ten.txt", "Range: bytes=7-\r\nIf-Range: " + condition + "\r\n");
    QCOMPARE(RawClient::status(answer), status);
    QCOMPARE(RawClient::body(answer), QByteArray(status == 206 ? "789" : "0123456789"));
}

void TestTreeServer::knownFileIsNotSent_data()
{
    QTest::addColumn<QByteArray>("fields");
    QTest::addColumn<int>("status");
    const QByteArray tag = fieldOf("ETag");
    QTest::newRow("tag") << "If-None-Match: " + tag + "\r\n" << 304;
    QTest::newRow("weak tag") << "If-None-Match: W/" + tag + "\r\n" << 304;
    QTest::newRow("one of several") << "If-None-Match: \"a\", " + tag + "\r\n" << 304;
    QTest::newRow("any") << QByteArray("If-None-Match: *\r\n") << 304;
    QTest::newRow("another tag") << QByteArray("If-None-Match: \"a\"\r\n") << 200;
    const QByteArray since = "If-Modified-Since: ";
    QTest::newRow("its date") << since + "Mon, 03 Feb 2020 04:05:06 GMT\r\n" << 304;
    QTest::newRow("later") << since + "Tue, 04 Feb 2020 04:05:06 GMT\r\n" << 200;
    QTest::newRow("earlier") << since + "Mon, 03 Feb 2020 04:05:05 GMT\r\n" << 200;
    QTest::newRow("no date") << since + "yesterday\r\n" << 200;
    QTest::newRow("the tag counts")
        << since + "Tue, 04 Feb 2020 04:05:06 GMT\r\nIf-None-Match: \"a\"\r\n"
        << 200;
}

void TestTreeServer::knownFileIsNotSent()
{
    QFETCH(QByteArray, fields);
    QFETCH(int, status);
    const QByteArray answer = get("/ten.txt", fields);
    QCOMPARE(RawClient::status(answer), status);
    QCOMPARE(RawClient::body(answer), QByteArray(status == 304 ? "" : "0123456789"));
    QCOMPARE(RawClient::field(answer, "ETag"), fieldOf("ETag"));
}

void TestTreeServer::tagChangesWithTheFile()
{
    const QString file = tree() + text("/changing.txt");
    CatalogueFiles::write(file, "one");
    const QByteArray before = RawClient::field(get("/changing.txt"), "ETag");
    QCOMPARE(RawClient::field(get("/changing.txt"), "ETag"), before);
    CatalogueFiles::write(file, "three");
    QVERIFY(RawClient::field(get("/changing.txt"), "ETag") != before);
}

void TestTreeServer::contentsAreKeptForAYear_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("control");
    const QByteArray year = "public, max-age=31536000, immutable";
    const QByteArray revalidated = "no-cache";
    const QString digest = QString(62, QLatin1Char('a')) + text("09");
    QTest::newRow("content") << text("content/aa/") + digest << year;
    QTest::newRow("doubled slash") << text("/content//aa/") + digest << year;
    QTest::newRow("signature") << text("content/aa/") + digest + text(".minisig") << revalidated;
    QTest::newRow("other folder") << text("config/content/aa/") + digest << revalidated;
    QTest::newRow("no digest") << text("content/aa/") + digest.toUpper() << revalidated;
    QTest::newRow("release") << text("ResourceConfig/release.json") << revalidated;
    QTest::newRow("release's signature")
        << text("ResourceConfig/release.json.minisig") << revalidated;
}

void TestTreeServer::contentsAreKeptForAYear()
{
    QFETCH(QString, name);
    QFETCH(QByteArray, control);
    CatalogueFiles::write(tree() + QLatin1Char('/') + name, "content");
    const QByteArray answer = get("/" + name.toUtf8());
    QCOMPARE(RawClient::body(answer), QByteArray("content"));
    QCOMPARE(RawClient::field(answer, "Cache-Control"), control);
}

void TestTreeServer::versionFilesAreNotKept_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("control");
    QTest::newRow("version") << text("resource_version_v3.xml") << QByteArray("no-store");
    QTest::newRow("partner's version")
        << text("resource_version_aff_de_v2.xml") << QByteArray("no-store");
    QTest::newRow("config") << text("resource_config.xml") << QByteArray("no-cache");
    QTest::newRow("display") << text("resource_display.xml") << QByteArray("no-cache");
}

void TestTreeServer::versionFilesAreNotKept()
{
    QFETCH(QString, name);
    QFETCH(QByteArray, control);
    CatalogueFiles::write(tree() + text("/ResourceConfig/") + name, "<a/>");
    QCOMPARE(RawClient::field(get("//ResourceConfig/" + name.toUtf8()), "Cache-Control"), control);
}

void TestTreeServer::nothingOutsideIsServed_data()
{
    QTest::addColumn<QByteArray>("target");
    for (const char* target :
         {"/../secret.txt", "/%2e%2e/secret.txt", "/%2E%2E%2Fsecret.txt", "/types/../../secret.txt",
          "//../secret.txt", "/..%5csecret.txt", "/types%5c..%5c..%5csecret.txt", "/link.txt",
          "/folder/secret.txt", "/folder/tree/../secret.txt", "/ten.txt%00.png", "/%00", "/.", "/",
          "/types", "http://127.0.0.1/../secret.txt", "/%252e%252e/secret.txt", "/....//secret.txt",
          "/%c0%ae%c0%ae/secret.txt"})
        QTest::newRow(target) << QByteArray(target);
}

void TestTreeServer::nothingOutsideIsServed()
{
    QFETCH(QByteArray, target);
    const QByteArray answer = get(target);
    QVERIFY2(RawClient::status(answer) >= 400, answer.constData());
    QVERIFY(!answer.contains("secret"));
    QVERIFY(!answer.contains("0123456789"));
}

void TestTreeServer::linkWithinTheTreeIsServed()
{
    if (!UnusualFiles::hasFileLinks)
        QSKIP("This system links folders only.");
    QCOMPARE(RawClient::body(get("/within.txt")), QByteArray("0123456789"));
}

MV_TEST_MAIN(TestTreeServer)
#include "tst_TreeServer.moc"
