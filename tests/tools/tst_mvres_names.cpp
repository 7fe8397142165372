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

#include <memory>

namespace {

/// The numbers of the catalogue's items.
enum Item : int { Christmas = 1, SnowDay, SnowNight, Snow, Twice, TwiceToo };

} // namespace

/// Tests how mvres finds items by name.
class TestMvresNames : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void fetchTakesAName_data();
    void fetchTakesAName();
    void fetchRefusesWhatIsNoSingleItem_data();
    void fetchRefusesWhatIsNoSingleItem();
    void nothingIsFetchedIfOneNameIsRefused();
    void sameItemByTwoNamesIsFetchedOnce();
    void candidatesAreInTheJsonDocument();
    void failureIsAJsonDocument();
    void searchFindsWordsInAllKinds_data();
    void searchFindsWordsInAllKinds();
    void searchPrintsTheListsJson();
    void searchForAGreekNameIgnoresCase();

private:
    Mvres m_mvres;
    std::unique_ptr<FaultServer> m_server;
};

void TestMvresNames::init()
{
    m_mvres = Mvres();
    SmallCatalogue catalogue;
    const auto theme = [&](Item item, const char* name, const char* file) {
        catalogue.addTheme(item, QString::fromUtf8(name), text(file));
    };
    theme(Christmas, "Noël sous la Neige", "/Themes/one.xml");
    theme(SnowDay, "Snow Day", "/Themes/two.xml");
    catalogue.addFilter(SnowNight, text("Snow Night"), text("/VideoFilters/three.xml"));
    catalogue.addFilter(Snow, text("snow"), text("/VideoFilters/four.xml"));
    theme(Twice, "Twice", "/Themes/five.xml");
    catalogue.addFilter(TwiceToo, text("Twice"), text("/VideoFilters/six.xml"));
    catalogue.writeTo(m_mvres.installed());
    Routes::Map routes;
    for (const char* file : {"/config/Themes/one.xml", "/config/Themes/two.xml",
                             "/config/VideoFilters/three.xml", "/config/VideoFilters/four.xml"})
        routes.insert(file, Routes::body(SmallCatalogue::themeConfig({})));
    m_server = std::make_unique<FaultServer>(Routes::by(routes));
    m_mvres.setServer(m_server->url(text("/")));
}

void TestMvresNames::fetchTakesAName_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("item");
    QTest::newRow("exact") << text("Snow Day") << int(SnowDay);
    QTest::newRow("exact, part of others") << text("snow") << int(Snow);
    QTest::newRow("other case and no accents") << text("noel SOUS la neige") << int(Christmas);
    QTest::newRow("other case, part of others") << text("SNOW") << int(Snow);
    QTest::newRow("blanks") << text(" snow  day ") << int(SnowDay);
    QTest::newRow("one word") << text("night") << int(SnowNight);
    QTest::newRow("words in another order") << text("neige noel") << int(Christmas);
    QTest::newRow("parts of words") << text("nei") << int(Christmas);
    QTest::newRow("GUID") << CatalogueFiles::guid(SnowDay) << int(SnowDay);
}

void TestMvresNames::fetchTakesAName()
{
    QFETCH(QString, name);
    QFETCH(int, item);
    const Outcome outcome = m_mvres.run({text("fetch"), name});
    QCOMPARE(outcome.err, QByteArray());
    QCOMPARE(outcome.status, 0);
    QVERIFY2(outcome.lines().constLast().startsWith(CatalogueFiles::guid(item)),
             outcome.out.constData());
    QCOMPARE(m_mvres.downloaded().size(), 1);
}

void TestMvresNames::fetchRefusesWhatIsNoSingleItem_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("message");
    const auto line = [](Item item, const char* rest) {
        return text("mvres: ") + CatalogueFiles::guid(item) + text(rest);
    };
    QTest::newRow("same name")
        << text("Twice")
        << text("mvres: \"Twice\" is the name of 2 items; give the GUID of one\n")
            + line(TwiceToo, "  filter  Twice\n") + line(Twice, "  theme  Twice\n");
    QTest::newRow("words of several")
        << text("sno n")
        << text("mvres: \"sno n\" is the name of 3 items; give the GUID of one\n")
            + line(SnowNight, "  filter  Snow Night\n") + line(Snow, "  filter  snow\n")
            + line(SnowDay, "  theme  Snow Day\n");
    QTest::newRow("unknown") << text("sunday") << text("mvres: no item is called \"sunday\"\n");
    QTest::newRow("empty") << QString() << text("mvres: no item is called \"\"\n");
    QTest::newRow("blank") << text(" ") << text("mvres: no item is called \" \"\n");
    QTest::newRow("unknown GUID") << CatalogueFiles::guid(
        99) << text("mvres: unknown GUID ") + CatalogueFiles::guid(99) + QLatin1Char('\n');
    QTest::newRow("almost a GUID") << text("{A}") << text("mvres: unknown GUID {A}\n");
}

void TestMvresNames::fetchRefusesWhatIsNoSingleItem()
{
    QFETCH(QString, name);
    QFETCH(QString, message);
    const Outcome outcome = m_mvres.run({text("fetch"), name});
    QCOMPARE(QString::fromUtf8(outcome.err), message);
    QCOMPARE(outcome.out, QByteArray());
    QCOMPARE(outcome.status, 1);
    QCOMPARE(m_mvres.downloaded(), QStringList());
}

void TestMvresNames::nothingIsFetchedIfOneNameIsRefused()
{
    QCOMPARE(m_mvres.run({text("fetch"), text("Snow Day"), text("Twice")}).status, 1);
    QCOMPARE(m_server->requestCount(), 0);
}

void TestMvresNames::sameItemByTwoNamesIsFetchedOnce()
{
    const Outcome outcome =
        m_mvres.run({text("fetch"), text("Snow Day"), text("day"), CatalogueFiles::guid(SnowDay)});
    QCOMPARE(outcome.status, 0);
    QCOMPARE(outcome.lines().filter(text("complete")).size(), 1);
}

void TestMvresNames::candidatesAreInTheJsonDocument()
{
    const Outcome outcome = m_mvres.run({text("fetch"), text("Twice"), text("--json")});
    QCOMPARE(outcome.status, 1);
    const QJsonObject error =
        QJsonDocument::fromJson(outcome.out).object()[text("error")].toObject();
    QCOMPARE(error[text("status")], QJsonValue(1));
    QCOMPARE(error[text("text")].toString(),
             text("\"Twice\" is the name of 2 items; give the GUID of one"));
    QCOMPARE(error[text("candidates")].toArray(),
             (QJsonArray{QJsonObject{{text("guid"), CatalogueFiles::guid(TwiceToo)},
                                     {text("kind"), text("filter")},
                                     {text("name"), text("Twice")}},
                         QJsonObject{{text("guid"), CatalogueFiles::guid(Twice)},
                                     {text("kind"), text("theme")},
                                     {text("name"), text("Twice")}}}));
}

void TestMvresNames::failureIsAJsonDocument()
{
    const Outcome outcome = m_mvres.run({text("fetch"), text("none"), text("--json")});
    QCOMPARE(outcome.err, QByteArray("mvres: no item is called \"none\"\n"));
    QCOMPARE(outcome.status, 1);
    const QJsonObject error{{text("status"), 1},
                            {text("text"), text("no item is called \"none\"")}};
    QCOMPARE(QJsonDocument::fromJson(outcome.out).object(), (QJsonObject{{text("error"), error}}));
}

void TestMvresNames::searchFindsWordsInAllKinds_data()
{
    QTest::addColumn<QString>("words");
    QTest::addColumn<QVector<int>>("items");
    const auto row = [](const char* words, const QVector<int>& items) {
        QTest::newRow(words) << text(words) << items;
    };
    row("snow", {SnowNight, Snow, SnowDay});
    row("DAY sNo", {SnowDay});
    row("noel", {Christmas});
    row("twice", {TwiceToo, Twice});
    row("none", {});
}

void TestMvresNames::searchFindsWordsInAllKinds()
{
    QFETCH(QString, words);
    QFETCH(QVector<int>, items);
    const Outcome outcome =
        m_mvres.run(QStringList{text("search")} + words.split(QLatin1Char(' ')));
    QCOMPARE(outcome.err, QByteArray());
    QCOMPARE(outcome.status, 0);
    const QStringList listed = m_mvres.run({text("list")}).lines();
    QStringList expected;
    for (const int item : qAsConst(items))
        expected += listed.filter(CatalogueFiles::guid(item));
    // The columns of a table are as wide as its own names need.
    const auto simplified = [](QStringList lines) {
        for (QString& line : lines)
            line = line.simplified();
        return lines;
    };
    QCOMPARE(simplified(outcome.lines()), simplified(expected));
}

void TestMvresNames::searchPrintsTheListsJson()
{
    const QStringList json{text("--json")};
    const QJsonArray found =
        QJsonDocument::fromJson(m_mvres.run(QStringList{text("search"), text("neige")} + json).out)
            .array();
    const QJsonArray themes =
        QJsonDocument::fromJson(m_mvres.run(QStringList{text("list"), text("theme")} + json).out)
            .array();
    QCOMPARE(found, QJsonArray{themes.at(0)});
    QCOMPARE(m_mvres.run(QStringList{text("search"), text("none")} + json).out,
             QByteArray("[\n]\n"));
}

void TestMvresNames::searchForAGreekNameIgnoresCase()
{
    SmallCatalogue catalogue;
    catalogue.addTheme(Christmas, QString::fromUtf8("Θάλασσα"), text("/Themes/one.xml"));
    catalogue.writeTo(m_mvres.installed());
    QProcess process;
    process.setProcessEnvironment(ConsoleProgram::utf8Environment());
    m_mvres.start(process, {text("search"), QString::fromUtf8("ΘΑΛΑΣΣΑ")});
    QCOMPARE(ConsoleProgram::end(process).lines().size(), 1);
}

MV_TEST_MAIN(TestMvresNames)
#include "tst_mvres_names.moc"
