// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "Download.h"
#include "host/HostSettings.h"

/// Tests what a download checks before it renames a file: web pages in place of files and, if the
/// host asks for it, content that contradicts the file name.
class tst_ContentCheck : public QObject
{
    Q_OBJECT

private slots:
    void cleanup() { hostSettings() = m_settings; }
    void pageInPlaceOfAFile_data();
    void pageInPlaceOfAFile();
    void pageThatWasAskedFor_data();
    void pageThatWasAskedFor();
    void plausibleContent_data();
    void plausibleContent();

private:
    const HostSettings m_settings = hostSettings();
};

namespace {

const QByteArray portal = "<!DOCTYPE html>\n<html><body>Please log in</body></html>";

} // namespace

void tst_ContentCheck::pageInPlaceOfAFile_data()
{
    QTest::addColumn<QByteArray>("body");
    QTest::addColumn<bool>("isPage");

    QTest::newRow("document type") << portal << true;
    QTest::newRow("upper case") << QByteArray("<!DOCTYPE HTML PUBLIC \"-//W3C//DTD\">") << true;
    QTest::newRow("root element") << QByteArray("<html lang=\"en\">") << true;
    QTest::newRow("bare root element") << QByteArray("<HTML>") << true;
    QTest::newRow("blanks before") << QByteArray("\r\n\t <html>") << true;
    QTest::newRow("byte order mark") << QByteArray("\xEF\xBB\xBF<html>") << true;
    QTest::newRow("comment before") << QByteArray("<!-- a proxy --><!-- 2 -->\n<html>") << true;
    QTest::newRow("XHTML") << QByteArray("<?xml version=\"1.0\"?><!DOCTYPE html><html/>") << true;
    QTest::newRow("nothing") << QByteArray() << false;
    QTest::newRow("another element") << QByteArray("<htmlish/>") << false;
    QTest::newRow("another document type") << QByteArray("<!DOCTYPE htmlish>") << false;
    QTest::newRow("XML") << QByteArray("<?xml version=\"1.0\"?><Resource/>") << false;
    QTest::newRow("in the middle") << QByteArray("text <html>") << false;
    QTest::newRow("comment without end") << QByteArray("<!-- <html>") << false;
    QTest::newRow("archive") << QByteArray("PK\x03\x04<html>") << false;
}

void tst_ContentCheck::pageInPlaceOfAFile()
{
    QFETCH(QByteArray, body);
    QFETCH(bool, isPage);
    FaultServer server(answering(HttpAnswer(200).body(body)));
    Download download;
    QCOMPARE(download.run(server.url(QStringLiteral("/file"))), isPage ? 3 : 0);
    if (!isPage)
        return;
    QCOMPARE(download.wrapper().failure().m_eCause, eFailure_Unreachable);
    QVERIFY(
        download.errorText().contains(QStringLiteral("received a web page instead of the file")));
    QCOMPARE(server.requestCount(), 1); // retrying would get the same answer
}

void tst_ContentCheck::pageThatWasAskedFor_data()
{
    QTest::addColumn<QString>("target"); // on the server
    QTest::addColumn<QString>("file");
    QTest::newRow("address") << QStringLiteral("/page.html") << QStringLiteral("file.bin");
    QTest::newRow("address with a query")
        << QStringLiteral("/page.HTM?a=b.zip") << QStringLiteral("file.bin");
    QTest::newRow("local file") << QStringLiteral("/page") << QStringLiteral("page.xhtml");
}

void tst_ContentCheck::pageThatWasAskedFor()
{
    QFETCH(QString, target);
    QFETCH(QString, file);
    FaultServer server(answering(HttpAnswer(200).body(portal)));
    Download download;
    const QString path = download.folder() + QLatin1Char('/') + file;
    download.wrapper().download(server.url(target), path, false);
    QCOMPARE(download.wrapper().result(), 0);
    QCOMPARE(CatalogueFiles::read(path), portal);
}

void tst_ContentCheck::plausibleContent_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("body");
    QTest::addColumn<bool>("isPlausible");
    const auto add = [](const char* title, const char* name, const QByteArray& body,
                        bool plausible) {
        QTest::newRow(title) << QString::fromLatin1(name) << body << plausible;
    };
    const QByteArray png = "\x89PNG\r\n\x1a\n rest";
    const QByteArray jpeg = "\xff\xd8\xff\xe0 rest";
    const QByteArray noise(100, '\x5a');
    add("XML", "a.xml", "<?xml version=\"1.0\"?><a><b/></a>", true);
    add("XML, upper case suffix", "a.XML", "<a>", false);
    add("XML, cut off", "a.xml", "<a><b/>", false);
    add("XML, empty", "a.xml", "", false);
    add("XML, text", "a.xml", "not here", false);
    add("PNG", "a.png", png, true);
    add("JPEG", "a.jpg", jpeg, true);
    add("JPEG, long suffix", "a.jpeg", jpeg, true);
    add("GIF 87", "a.gif", "GIF87a rest", true);
    add("GIF 89", "a.gif", "GIF89a rest", true);
    add("picture of another format", "a.png", jpeg, true); // decoders go by content
    add("vector picture", "a.png", "<svg xmlns='http://www.w3.org/2000/svg'/>", false);
    add("no picture", "a.gif", noise, false);
    add("cut signature", "a.png", png.left(7), false);
    add("archive", "a.zip", "PK\x03\x04 rest", true);
    add("empty archive", "a.zip", QByteArray("PK\x05\x06", 4) + QByteArray(18, '\0'), true);
    add("no archive", "a.zip", noise, false);
    add("empty file", "a.zip", "", false);
    add("another suffix", "a.mp3", noise, true);
    add("no suffix", "a", noise, true);
}

void tst_ContentCheck::plausibleContent()
{
    QFETCH(QString, name);
    QFETCH(QByteArray, body);
    QFETCH(bool, isPlausible);
    FaultServer server(answering(HttpAnswer(200).body(body)));
    Download download;
    const QString path = download.folder() + QLatin1Char('/') + name;
    const auto fetch = [&] {
        download.wrapper().download(server.url(QStringLiteral("/file")), path, false);
        return download.wrapper().result();
    };
    QCOMPARE(fetch(), 0); // not checked unless the host asks for it
    QCOMPARE(CatalogueFiles::read(path), body);

    CatalogueFiles::write(path, "older");
    hostSettings().checkContent = true;
    QCOMPARE(fetch(), isPlausible ? 0 : 7);
    QCOMPARE(CatalogueFiles::read(path), isPlausible ? body : QByteArray("older"));
    QCOMPARE(download.files(), QStringList{name});
    if (isPlausible)
        return;
    QCOMPARE(download.wrapper().failure().m_eCause, eFailure_Damaged);
    QVERIFY(download.errorText().contains(QStringLiteral("the content is not plausible: no ")));
}

MV_TEST_MAIN(tst_ContentCheck)

#include "tst_ContentCheck.moc"
