#include "Mvres.h"
#include "Routes.h"
#include "SmallCatalogue.h"
#include "support/HttpAnswer.h"
#include "support/TestMain.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <memory>

namespace {

enum Theme { Good = 1, NoConfig, NoArchive, Reset, Outside, NoDependency, Broken, HalfArchive };

QString text(const char* latin1)
{
    return QString::fromLatin1(latin1);
}

QByteArray guid(int number)
{
    return CatalogueFiles::guid(number).toUtf8();
}

} // namespace

/// mvres fetch: how failures end, are told and leave the disk.
class TestMvresFetchFailures : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void endsWith_data();
    void endsWith();
    void serverThatIsDownIsANetworkFailure();
    void goesOnAfterAFailure_data();
    void goesOnAfterAFailure();
    void fetchesWhatIsMissingTheNextTime();
    void jsonTellsTheResult();

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
        {"/config/Themes/some.zip", Routes::body("some")},
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
    QTest::addColumn<QStringList>("left"); // what lies in the download tree
    const QString network = text("network failure");
    const QString path = text("no usable address or path");
    const QString element = text("not every file could be fetched");
    const QString other = text("its config file could not be fetched");

    QTest::newRow("no such config file")
        << int(NoConfig) << 13 << other << QStringList{text("Themes/none.xml")} << QStringList();
    QTest::newRow("config file refused")
        << int(Broken) << 13 << other << QStringList{text("Themes/error.xml")} << QStringList();
    QTest::newRow("connection reset")
        << int(Reset) << 10 << network << QStringList{text("Themes/reset.xml")} << QStringList();
    QTest::newRow("config file outside the root")
        << int(Outside) << 11 << path << QStringList{text("../../../../../../outside.xml")}
        << QStringList();
    QTest::newRow("no such resource")
        << int(NoArchive) << 12 << element << QStringList{text("Themes/none.zip")}
        << QStringList{text("Themes/noarchive.xml"), text("Themes/some.zip")};
    QTest::newRow("no such resource of a dependency")
        << int(NoDependency) << 12 << element << QStringList{text("VideoFilters/none.zip")}
        << QStringList{text("Themes/nodependency.xml")};
    QTest::newRow("resource breaks off")
        << int(HalfArchive) << 12 << element << QStringList{text("Themes/half.zip")}
        << QStringList{text("Themes/half.xml")};
}

void TestMvresFetchFailures::endsWith()
{
    QFETCH(int, theme);
    QFETCH(int, status);
    QFETCH(QString, message);
    QFETCH(QStringList, missing);
    QFETCH(QStringList, left);

    const Outcome outcome = m_mvres.run(fetch({theme}));
    QString expected = text("mvres: %1: %2\n").arg(CatalogueFiles::guid(theme), message);
    for (const QString& file : missing)
        expected += text("mvres: missing: %1\n").arg(m_server->url(text("/config/") + file));
    QCOMPARE(QString::fromUtf8(outcome.err), expected);
    QCOMPARE(outcome.status, status);
    QVERIFY2(outcome.lines().constLast().contains(message), outcome.out.constData());

    for (QString& file : left)
        file.prepend(text("Themes/config/PQD/Download/"));
    QCOMPARE(m_mvres.downloaded(), left);
}

void TestMvresFetchFailures::serverThatIsDownIsANetworkFailure()
{
    const QString server = text("http://127.0.0.1:%1/").arg(FaultServer::refusingPort());
    const Outcome outcome = m_mvres.run(fetch({Good}, {text("--server"), server}));
    QCOMPARE(QString::fromUtf8(outcome.err),
             text("mvres: %1: network failure\nmvres: missing: %2config/Themes/good.xml\n")
                 .arg(CatalogueFiles::guid(Good), server));
    QCOMPARE(outcome.status, 10);
    QCOMPARE(m_mvres.downloaded(), QStringList());
}

void TestMvresFetchFailures::goesOnAfterAFailure_data()
{
    QTest::addColumn<QVector<int>>("themes");
    QTest::addColumn<int>("status");
    QTest::newRow("first one fails") << QVector<int>{NoConfig, Good} << 13;
    QTest::newRow("last one fails") << QVector<int>{Good, NoConfig} << 13;
    QTest::newRow("network, then another") << QVector<int>{Reset, Good, NoConfig} << 10;
    QTest::newRow("another, then network") << QVector<int>{NoConfig, Good, Reset} << 13;
}

void TestMvresFetchFailures::goesOnAfterAFailure()
{
    QFETCH(QVector<int>, themes);
    QFETCH(int, status);
    const Outcome outcome = m_mvres.run(fetch(themes));
    QCOMPARE(outcome.status, status); // of the first failure
    QVERIFY(outcome.out.contains(guid(Good) + " Good: complete"));
    QVERIFY(outcome.err.contains(guid(NoConfig) + ": its config file"));
}

void TestMvresFetchFailures::fetchesWhatIsMissingTheNextTime()
{
    QCOMPARE(m_mvres.run(fetch({NoArchive})).status, 12);
    FaultServer repaired(Routes::by({{"/config/Themes/none.zip", Routes::body("there")}}));
    const Outcome outcome =
        m_mvres.run(fetch({NoArchive}, {text("--server"), repaired.url(QString())}));
    QCOMPARE(outcome.err, QByteArray());
    QCOMPARE(outcome.status, 0);
    QCOMPARE(repaired.requestCount(), 1);
}

void TestMvresFetchFailures::jsonTellsTheResult()
{
    const Outcome outcome = m_mvres.run(fetch({NoConfig, Good, Reset}, {text("--json")}));
    QCOMPARE(outcome.status, 13);
    const QJsonArray items = QJsonDocument::fromJson(outcome.out).array();
    QCOMPARE(items.size(), 3);
    QCOMPARE(items.at(0)[text("result")].toInt(-1), 3);
    QCOMPARE(items.at(0)[text("resultText")].toString(),
             text("its config file could not be fetched"));
    QCOMPARE(items.at(0)[text("ready")], QJsonValue(false));
    QCOMPARE(items.at(0)[text("missing")].toInt(), 1);
    QCOMPARE(items.at(1)[text("result")].toInt(-1), 5);
    QCOMPARE(items.at(2)[text("result")].toInt(-1), 0);
    QCOMPARE(items.at(2)[text("resultText")].toString(), text("network failure"));
}

MV_TEST_MAIN(TestMvresFetchFailures)
#include "tst_mvres_fetchFailures.moc"
