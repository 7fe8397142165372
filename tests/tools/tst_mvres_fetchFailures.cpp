// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "Mvres.h"
#include "Routes.h"
#include "SmallCatalogue.h"
#include "support/HttpAnswer.h"
#include "support/TestMain.h"
#include "support/TestTexts.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <memory>

namespace {

enum Theme { Good = 1, NoConfig, NoArchive, Reset, Outside, NoDependency, Broken, HalfArchive };

QByteArray guid(int number)
{
    return CatalogueFiles::guid(number).toUtf8();
}

} // namespace

/// Tests failures of mvres fetch: exit status, messages and files left on disk.
class TestMvresFetchFailures : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void endsWith_data();
    void endsWith();
    void serverThatIsDownCannotBeReached();
    void goesOnAfterAFailure_data();
    void goesOnAfterAFailure();
    void fetchesWhatIsMissingTheNextTime();
    void configThatCannotBeParsedIsAFailure_data();
    void configThatCannotBeParsedIsAFailure();
    void jsonContainsTheResult();

private:
    QStringList fetch(const QVector<int>& items, const QStringList& options = {}) const;

    Mvres m_mvres;
    std::unique_ptr<FaultServer> m_server;
};

void TestMvresFetchFailures::init()
{
    m_mvres = Mvres();
    SmallCatalogue catalogue;
    catalogue.addTheme(Good, text("Good"), text("/Themes/good.xml"));
    catalogue.addTheme(NoConfig, text("No config"), text("/Themes/none.xml"));
    catalogue.addTheme(NoArchive, text("No archive"), text("/Themes/noarchive.xml"),
                       {text("/Themes/none.zip"), text("/Themes/some.zip")});
    catalogue.addTheme(Reset, text("Reset"), text("/Themes/reset.xml"));
    catalogue.addTheme(Outside, text("Outside"), text("/../../../../../../outside.xml"));
    catalogue.addTheme(NoDependency, text("No dependency"), text("/Themes/nodependency.xml"));
    catalogue.addTheme(Broken, text("Error"), text("/Themes/error.xml"));
    catalogue.addTheme(HalfArchive, text("Half"), text("/Themes/half.xml"),
                       {text("/Themes/half.zip")});
    catalogue.addFilter(20, QString(), QString(), {text("/VideoFilters/none.zip")});
    catalogue.writeTo(m_mvres.installed());

    const FaultServer::Handler config = Routes::body(SmallCatalogue::themeConfig({}));
    m_server = std::make_unique<FaultServer>(Routes::by({
        {"/config/Themes/good.xml", config},
        {"/config/Themes/noarchive.xml", config},
        {"/config/Themes/some.zip", Routes::archive()},
        {"/config/Themes/reset.xml", [](HttpExchange& exchange) { exchange.reset(); }},
        {"/config/../../../../../../outside.xml", config},
        {"/config/Themes/nodependency.xml", Routes::body(SmallCatalogue::themeConfig({20}))},
        {"/config/Themes/error.xml",
         [](HttpExchange& exchange) { exchange.answer(HttpAnswer(403).body("no")); }},
        {"/config/Themes/half.xml", config},
        {"/config/Themes/half.zip",
         [](HttpExchange& exchange) {
             exchange.answer(HttpAnswer(200).field("Content-Length", "100").bareBody("half"));
             exchange.close();
         }},
    }));
    m_mvres.setServer(m_server->url(text("/")));
}

QStringList TestMvresFetchFailures::fetch(const QVector<int>& items,
                                          const QStringList& options) const
{
    QStringList arguments{text("fetch")};
    for (const int item : items)
        arguments.append(CatalogueFiles::guid(item));
    return arguments + options;
}

void TestMvresFetchFailures::endsWith_data()
{
    QTest::addColumn<int>("theme");
    QTest::addColumn<int>("status");
    QTest::addColumn<QString>("message");
    QTest::addColumn<QStringList>("missing");
    QTest::addColumn<QStringList>("left"); // files in the download tree
    QTest::addColumn<QString>("details");  // one of them
    const QString lost = text("the connection to the server was lost");
    const QString address = text("the file has no usable address");
    const QString notThere = text("the file is not on the server");
    const QString error = text("the server reports an error");

    QTest::newRow("no such config file")
        << int(NoConfig) << 36 << notThere << QStringList{text("Themes/none.xml")} << QStringList()
        << text("HTTP status 404");
    QTest::newRow("config file refused")
        << int(Broken) << 37 << error << QStringList{text("Themes/error.xml")} << QStringList()
        << text("HTTP status 403");
    QTest::newRow("connection reset")
        << int(Reset) << 35 << lost << QStringList{text("Themes/reset.xml")} << QStringList()
        << text("reset");
    QTest::newRow("config file outside the root")
        << int(Outside) << 38 << address << QStringList{text("../../../../../../outside.xml")}
        << QStringList() << text("no place below the download root");
    QTest::newRow("no such resource")
        << int(NoArchive) << 36 << notThere << QStringList{text("Themes/none.zip")}
        << QStringList{text("Themes/noarchive.xml"), text("Themes/some.zip")}
        << text("Themes/none.zip: HTTP status 404");
    QTest::newRow("no such resource of a dependency")
        << int(NoDependency) << 36 << notThere << QStringList{text("VideoFilters/none.zip")}
        << QStringList{text("Themes/nodependency.xml")} << text("HTTP status 404");
    QTest::newRow("resource breaks off")
        << int(HalfArchive) << 35 << lost << QStringList{text("Themes/half.zip")}
        << QStringList{text("Themes/half.xml")} << text("bytes received");
}

void TestMvresFetchFailures::endsWith()
{
    QFETCH(int, theme);
    QFETCH(int, status);
    QFETCH(QString, message);
    QFETCH(QStringList, missing);
    QFETCH(QStringList, left);
    QFETCH(QString, details);

    const Outcome outcome = m_mvres.run(fetch({theme}));
    const QStringList lines = QString::fromUtf8(outcome.err).split(QLatin1Char('\n'));
    QCOMPARE(lines.size(), 2 + missing.size() + 1);
    QCOMPARE(lines.at(0), text("mvres: %1: %2").arg(CatalogueFiles::guid(theme), message));
    QVERIFY2(lines.at(1).contains(details), qPrintable(lines.at(1)));
    for (int i = 0; i < missing.size(); ++i) {
        QCOMPARE(lines.at(2 + i),
                 text("mvres: missing: %1").arg(m_server->url(text("/config/") + missing.at(i))));
    }
    QCOMPARE(outcome.status, status);
    QVERIFY2(outcome.lines().constLast().contains(message), outcome.out.constData());

    for (QString& file : left)
        file.prepend(text("Themes/config/PQD/Download/"));
    QCOMPARE(m_mvres.downloaded(), left);
}

void TestMvresFetchFailures::serverThatIsDownCannotBeReached()
{
    const QString server = text("http://127.0.0.1:%1/").arg(FaultServer::refusingPort());
    const Outcome outcome = m_mvres.run(fetch({Good}, {text("--server"), server}));
    const QStringList lines = QString::fromUtf8(outcome.err).split(QLatin1Char('\n'));
    QCOMPARE(lines.at(0),
             text("mvres: %1: the server cannot be reached").arg(CatalogueFiles::guid(Good)));
    QCOMPARE(lines.at(2), text("mvres: missing: %1config/Themes/good.xml").arg(server));
    QCOMPARE(outcome.status, 34);
    QCOMPARE(m_mvres.downloaded(), QStringList());
}

void TestMvresFetchFailures::goesOnAfterAFailure_data()
{
    QTest::addColumn<QVector<int>>("themes");
    QTest::addColumn<int>("status");
    QTest::newRow("first one fails") << QVector<int>{NoConfig, Good} << 36;
    QTest::newRow("last one fails") << QVector<int>{Good, NoConfig} << 36;
    QTest::newRow("network, then another") << QVector<int>{Reset, Good, NoConfig} << 35;
    QTest::newRow("another, then network") << QVector<int>{NoConfig, Good, Reset} << 36;
}

void TestMvresFetchFailures::goesOnAfterAFailure()
{
    QFETCH(QVector<int>, themes);
    QFETCH(int, status);
    const Outcome outcome = m_mvres.run(fetch(themes));
    QCOMPARE(outcome.status, status); // of the first failure
    QVERIFY(outcome.out.contains(guid(Good) + " Good: complete"));
    QVERIFY(outcome.err.contains(guid(NoConfig) + ": the file is not on the server"));
}

void TestMvresFetchFailures::fetchesWhatIsMissingTheNextTime()
{
    QCOMPARE(m_mvres.run(fetch({NoArchive})).status, 36);
    FaultServer repaired(Routes::by({{"/config/Themes/none.zip", Routes::archive()}}));
    const Outcome outcome =
        m_mvres.run(fetch({NoArchive}, {text("--server"), repaired.url(QString())}));
    QCOMPARE(outcome.err, QByteArray());
    QCOMPARE(outcome.status, 0);
    QCOMPARE(repaired.requestCount(), 1);
}

void TestMvresFetchFailures::configThatCannotBeParsedIsAFailure_data()
{
    QTest::addColumn<bool>("isInstalled");
    QTest::addColumn<int>("status");
    QTest::addColumn<QString>("message");
    QTest::newRow("downloaded, but not on the server any more")
        << false << 36 << text("the file is not on the server");
    QTest::newRow("came with the application") << true << 40 << text("cannot be read as a theme's");
}

/// The theme's other needs are listed in that file, which is kept: it may only be temporarily
/// unreadable.
void TestMvresFetchFailures::configThatCannotBeParsedIsAFailure()
{
    QFETCH(bool, isInstalled);
    QFETCH(int, status);
    QFETCH(QString, message);
    const QString config = isInstalled ? m_mvres.installed() + text("/Resource/Themes/none.xml")
                                       : m_mvres.downloadedFile(text("/Themes/none.xml"));
    CatalogueFiles::write(config, "<T>");
    const Outcome outcome = m_mvres.run(fetch({NoConfig}));
    QCOMPARE(outcome.status, status);
    QVERIFY2(outcome.err.contains(message.toUtf8()), outcome.err.constData());
    QCOMPARE(CatalogueFiles::read(config), QByteArray("<T>"));

    CatalogueFiles::write(config, SmallCatalogue::themeConfig({}));
    QCOMPARE(m_mvres.run(fetch({NoConfig})).status, 0);
}

void TestMvresFetchFailures::jsonContainsTheResult()
{
    const Outcome outcome = m_mvres.run(fetch({NoConfig, Good, Reset}, {text("--json")}));
    QCOMPARE(outcome.status, 36);
    const QJsonArray items = QJsonDocument::fromJson(outcome.out).array();
    QCOMPARE(items.size(), 3);
    QCOMPARE(items.at(0)[text("result")].toString(), text("failed"));
    QCOMPARE(items.at(0)[text("resultText")].toString(), text("the file is not on the server"));
    const QJsonObject error = items.at(0)[text("error")].toObject();
    QCOMPARE(error[text("cause")].toString(), text("notOnServer"));
    QCOMPARE(error[text("url")].toString(), m_server->url(text("/config/Themes/none.xml")));
    QVERIFY(error[text("file")].toString().startsWith(m_mvres.root()));
    QVERIFY(error[text("details")].toString().contains(text("HTTP status 404")));
    QVERIFY(items.at(1)[text("error")].isUndefined());
    QCOMPARE(items.at(0)[text("ready")], QJsonValue(false));
    QCOMPARE(items.at(0)[text("missing")].toInt(), 1);
    QCOMPARE(items.at(1)[text("result")].toString(), text("complete"));
    QCOMPARE(items.at(2)[text("result")].toString(), text("failed"));
    QCOMPARE(items.at(2)[text("resultText")].toString(),
             text("the connection to the server was lost"));
}

MV_TEST_MAIN(TestMvresFetchFailures)
#include "tst_mvres_fetchFailures.moc"
