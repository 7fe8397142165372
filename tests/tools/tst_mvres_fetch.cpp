// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "Mvres.h"
#include "Routes.h"
#include "SmallCatalogue.h"
#include "support/TestMain.h"
#include "support/TestTexts.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRegularExpression>

#include <memory>

/// Tests mvres fetch with themes of a few files, which skip the simulated first phase.
class TestMvresFetch : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void fetchesEverythingAThemeNeeds();
    void printsPlainLines();
    void asksForNothingTheSecondTime();
    void readsAGuidInAnyForm_data();
    void readsAGuidInAnyForm();
    void fetchesSeveralItemsInOrder();
    void fetchesAnItemOnce();
    void unknownGuidFetchesNothing();
    void withoutServerItSaysSo();
    void withoutServerCompleteItemsAreComplete();
    void printsOneJsonDocument();
    void namesKeepTheirLine();

private:
    QStringList fetch(const QVector<int>& items, const QStringList& options = {}) const;

    Mvres m_mvres;
    std::unique_ptr<FaultServer> m_server;
};

/// Creates theme 1, which uses filter 3 (without a definition of its own), and theme 2, which uses
/// nothing.
void TestMvresFetch::init()
{
    m_mvres = Mvres();
    SmallCatalogue catalogue;
    catalogue.addTheme(1, text("One"), text("/Themes/one.xml"), {text("/Themes/one.zip")});
    catalogue.addTheme(2, text("Two %1 of 3"), text("/Themes/two.xml"));
    catalogue.addFilter(3, QString(), QString(), {text("/VideoFilters/three.zip")});
    catalogue.writeTo(m_mvres.installed());
    m_server = std::make_unique<FaultServer>(Routes::by({
        {"/config/Themes/one.xml", Routes::body(SmallCatalogue::themeConfig({3}))},
        {"/config/Themes/one.zip", Routes::archive(20010)},
        {"/config/Themes/two.xml", Routes::body(SmallCatalogue::themeConfig({}))},
        {"/config/VideoFilters/three.zip", Routes::archive()},
    }));
    m_mvres.setServer(m_server->url(text("/")));
}

QStringList TestMvresFetch::fetch(const QVector<int>& items, const QStringList& options) const
{
    QStringList arguments{text("fetch")};
    for (const int item : items)
        arguments.append(CatalogueFiles::guid(item));
    return arguments + options;
}

void TestMvresFetch::fetchesEverythingAThemeNeeds()
{
    const Outcome outcome = m_mvres.run(fetch({1}));
    QCOMPARE(outcome.err, QByteArray());
    QCOMPARE(outcome.status, 0);
    QCOMPARE(m_mvres.downloaded(),
             (QStringList{text("Themes/config/PQD/Download/Themes/one.xml"),
                          text("Themes/config/PQD/Download/Themes/one.zip"),
                          text("Themes/config/PQD/Download/VideoFilters/three.zip")}));
    QCOMPARE(CatalogueFiles::read(m_mvres.downloadedFile(text("/Themes/one.xml"))),
             SmallCatalogue::themeConfig({3}));
    QCOMPARE(CatalogueFiles::read(m_mvres.downloadedFile(text("/Themes/one.zip"))),
             Routes::archiveBytes(20010));
    const QStringList listed = m_mvres.run({text("list"), text("theme")}).lines();
    QVERIFY(listed.constFirst().endsWith(text("  ready")));
    QVERIFY(listed.constLast().endsWith(text("  1 missing")));
}

/// Expects one line per file while it arrives, then the files and their sizes.
void TestMvresFetch::printsPlainLines()
{
    Gate gate;
    FaultServer server(Routes::by({
        {"/config/Themes/one.xml", gate.body(SmallCatalogue::themeConfig({3}))},
        {"/config/Themes/one.zip", gate.body(Routes::archiveBytes(20010))},
        {"/config/VideoFilters/three.zip", gate.body(Routes::archiveBytes())},
    }));
    m_mvres.setServer(server.url(text("/")));
    QProcess process;
    m_mvres.start(process, fetch({1}));
    QByteArray out;
    for (const char* file : {"one.xml", "one.zip", "three.zip"}) {
        QTRY_VERIFY_WITH_TIMEOUT((out += process.readAllStandardOutput()).contains(file), 20000);
        gate.open();
    }
    const Outcome outcome = ConsoleProgram::end(process);
    QCOMPARE(outcome.err, QByteArray());
    QCOMPARE(outcome.status, 0);

    QString printed = QString::fromUtf8(out.replace("\r\n", "\n") + outcome.out);
    printed.replace(QRegularExpression(text(": [ \\d]{3}%  ")), text(": NNN%  "));
    printed.replace(m_mvres.installed(), text("INSTALLED"));
    printed.replace(m_mvres.downloadedFile(QString()), text("ROOT"));
    printed.replace(CatalogueFiles::guid(1), text("GUID"));
    const QStringList expected{
        text("One: NNN%  preparing"),
        text("One: NNN%  one.xml"),
        text("One: NNN%  one.zip"),
        text("One: NNN%  three.zip"),
        text("      1 byte  INSTALLED/Resource/display/Themes/thumb.jpg"),
        text("      1 byte  INSTALLED/Resource/display/Themes/preview.gif"),
        text("   143 bytes  ROOT/Themes/one.xml"),
        text("     20.0 kB  ROOT/Themes/one.zip"),
        text("     5 bytes  ROOT/VideoFilters/three.zip"),
        text("GUID One: complete, 5 files, 20.2 kB"),
        QString(),
    };
    QCOMPARE(printed.split(QLatin1Char('\n')), expected);
}

void TestMvresFetch::asksForNothingTheSecondTime()
{
    QCOMPARE(m_mvres.run(fetch({1})).status, 0);
    const int requests = m_server->requestCount();
    QCOMPARE(requests, 3);
    const Outcome again = m_mvres.run(fetch({1}));
    QCOMPARE(again.status, 0);
    QCOMPARE(again.err, QByteArray());
    QCOMPARE(m_server->requestCount(), requests);
    QVERIFY(!again.out.contains('%'));
    QVERIFY(again.lines().constLast().contains(text("complete")));
}

void TestMvresFetch::readsAGuidInAnyForm_data()
{
    QTest::addColumn<QString>("guid");
    const QString guid = CatalogueFiles::guid(2);
    QTest::newRow("lower case") << guid.toLower();
    QTest::newRow("without braces") << guid.mid(1, 36);
    QTest::newRow("lower case without braces") << guid.mid(1, 36).toLower();
}

void TestMvresFetch::readsAGuidInAnyForm()
{
    QFETCH(QString, guid);
    const Outcome outcome = m_mvres.run({text("fetch"), guid});
    QCOMPARE(outcome.status, 0);
    QCOMPARE(m_server->requestCount("/config/Themes/two.xml"), 1);
}

void TestMvresFetch::fetchesSeveralItemsInOrder()
{
    const Outcome outcome = m_mvres.run(fetch({2, 1}));
    QCOMPARE(outcome.status, 0);
    const QStringList ends = outcome.lines().filter(text(": complete, "));
    QCOMPARE(ends.size(), 2);
    QVERIFY(ends.at(0).startsWith(CatalogueFiles::guid(2)));
    QVERIFY(ends.at(1).startsWith(CatalogueFiles::guid(1)));
    QCOMPARE(m_server->requests().constFirst().target, QByteArray("/config/Themes/two.xml"));
}

void TestMvresFetch::fetchesAnItemOnce()
{
    const Outcome outcome = m_mvres.run(fetch({2, 2}));
    QCOMPARE(outcome.status, 0);
    QCOMPARE(outcome.lines().filter(text(": complete, ")).size(), 1);
    QCOMPARE(m_server->requestCount(), 1);
}

void TestMvresFetch::unknownGuidFetchesNothing()
{
    const Outcome outcome = m_mvres.run(fetch({2, 99}));
    QCOMPARE(outcome.err, "mvres: unknown GUID " + CatalogueFiles::guid(99).toUtf8() + '\n');
    QCOMPARE(outcome.out, QByteArray());
    QCOMPARE(outcome.status, 1);
    QCOMPARE(m_server->requestCount(), 0);
    QCOMPARE(m_mvres.downloaded(), QStringList());
}

void TestMvresFetch::withoutServerItSaysSo()
{
    m_mvres.setServer(QString());
    const Outcome outcome = m_mvres.run(fetch({2}));
    QCOMPARE(outcome.err,
             QByteArray("mvres: no server to fetch from: give --server, or url_themeRootDir in "
                        "the settings\n"));
    QCOMPARE(outcome.out, QByteArray());
    QCOMPARE(outcome.status, 1);
}

void TestMvresFetch::withoutServerCompleteItemsAreComplete()
{
    m_mvres.setServer(QString());
    CatalogueFiles::write(m_mvres.downloadedFile(text("/Themes/two.xml")),
                          SmallCatalogue::themeConfig({}));
    QCOMPARE(m_mvres.run(fetch({2})).status, 0);
}

void TestMvresFetch::printsOneJsonDocument()
{
    const Outcome outcome = m_mvres.run(fetch({2, 1}, {text("--json")}));
    QCOMPARE(outcome.err, QByteArray());
    QCOMPARE(outcome.status, 0);
    QJsonParseError error;
    const QJsonArray items = QJsonDocument::fromJson(outcome.out, &error).array();
    QCOMPARE(error.error, QJsonParseError::NoError);
    QCOMPARE(items.size(), 2);
    QCOMPARE(items.at(0)[text("guid")].toString(), CatalogueFiles::guid(2));
    const QJsonObject item = items.at(1).toObject();
    QCOMPARE(item[text("guid")].toString(), CatalogueFiles::guid(1));
    QCOMPARE(item[text("name")].toString(), text("One"));
    QCOMPARE(item[text("result")].toString(), text("complete"));
    QCOMPARE(item[text("resultText")].toString(), text("complete"));
    QCOMPARE(item[text("ready")], QJsonValue(true));
    QCOMPARE(item[text("missing")].toInt(), 0);
    const QJsonObject archive{
        {text("what"), text("resource")},
        {text("path"), m_mvres.downloadedFile(text("/Themes/one.zip"))},
        {text("url"), m_server->url(text("/config/Themes/one.zip"))},
        {text("present"), true},
        {text("size"), 20010},
    };
    QVERIFY(item[text("files")].toArray().contains(archive));
}

void TestMvresFetch::namesKeepTheirLine()
{
    const QStringList lines = m_mvres.run(fetch({2})).lines();
    QVERIFY2(QRegularExpression(text("^Two %1 of 3: [ \\d]{3}%  (preparing|two.xml)$"))
                 .match(lines.constFirst())
                 .hasMatch(),
             qPrintable(lines.constFirst()));
    QVERIFY(lines.constLast().startsWith(CatalogueFiles::guid(2) + text(" Two %1 of 3: complete")));
}

MV_TEST_MAIN(TestMvresFetch)
#include "tst_mvres_fetch.moc"
