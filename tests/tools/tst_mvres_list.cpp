// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "Mvres.h"
#include "SmallCatalogue.h"
#include "support/TestMain.h"

#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace tst_mvres_list {

namespace {

const char themes[] =
    R"({1611435C-464C-5F2E-B9D6-2247770B2131}  theme       New Year            festivals  -          298.7 kB  ready
{117A6E65-2BC7-5CBC-8A75-CD61AAA4D743}  theme       Lantern Night       festivals  -          241.7 kB  ready
{C03E1D76-2CEA-5E2A-8517-C805C9A0C695}  theme       White Christmas     festivals  favourite  to fetch  3 missing
{640C6B89-2A14-52EA-96EE-9F8A8A4D98A3}  theme       Mountain Trip       travel     -          to fetch  2 missing
{9C05A930-5459-5507-9E1E-AC39D6B0F376}  theme       Candlelight Dinner  banquets   -          to fetch  2 missing
{376AF001-90C5-57C5-8793-F9005F4382C3}  theme       Autumn Memories     others     -          to fetch  2 missing
)";

const char whiteChristmas[] = "{C03E1D76-2CEA-5E2A-8517-C805C9A0C695}";
const char blueSilk[] = "{20A63E69-32DC-415E-AA04-6A3D705F8290}";

QStringList list(const QStringList& arguments = {})
{
    return QStringList{QStringLiteral("list")} + arguments;
}

QJsonArray parsed(const Outcome& outcome)
{
    return QJsonDocument::fromJson(outcome.out).array();
}

QJsonObject itemOf(const QJsonArray& items, const char* guid)
{
    for (const QJsonValue& item : items) {
        if (item[QStringLiteral("guid")] == QString::fromLatin1(guid))
            return item.toObject();
    }
    return {};
}

/// Returns the size of files of the samples' installation.
double bytesOf(const QVector<const char*>& files)
{
    qint64 bytes = 0;
    for (const char* const name : files) {
        bytes += QFileInfo(Mvres::samples() + QStringLiteral("/installed/Resource/")
                           + QString::fromLatin1(name))
                     .size();
    }
    return static_cast<double>(bytes);
}

} // namespace

/// Tests mvres list.
class TestMvresList : public QObject
{
    Q_OBJECT

private slots:
    void printsATable();
    void printsJson();
    void listsEveryKindInTheCataloguesOrder();
    void listsOneKind_data();
    void listsOneKind();
    void unknownKindIsABadArgument();
    void withoutCatalogueItNamesBothFiles();
    void dependenciesCountWithHasMV_data();
    void dependenciesCountWithHasMV();
    void parametersReachTheCatalogue();
    void alignsNamesByTheirWidthOnScreen();
    void printsNamesAsTheyStand();
    void controlCharactersBecomeBlanks();
};

void TestMvresList::printsATable()
{
    Mvres mvres;
    mvres.useSamples();
    QCOMPARE(mvres.run({QStringLiteral("favourite"), QString::fromLatin1(whiteChristmas)}).status,
             0);
    const Outcome outcome = mvres.run(list({QStringLiteral("theme")}));
    QCOMPARE(outcome.out, QByteArray(themes));
    QCOMPARE(outcome.err, QByteArray());
    QCOMPARE(outcome.status, 0);
}

void TestMvresList::printsJson()
{
    Mvres mvres;
    mvres.useSamples();
    QCOMPARE(mvres.run({QStringLiteral("favourite"), QString::fromLatin1(blueSilk)}).status, 0);
    const Outcome outcome = mvres.run(list({QStringLiteral("--json")}));
    QCOMPARE(outcome.status, 0);
    const QJsonArray items = parsed(outcome);
    QCOMPARE(items.size(), 34);

    const QJsonObject theme{
        {QStringLiteral("guid"), QString::fromLatin1(whiteChristmas)},
        {QStringLiteral("kind"), QStringLiteral("theme")},
        {QStringLiteral("name"), QStringLiteral("White Christmas")},
        {QStringLiteral("themeType"), QStringLiteral("festivals")},
        {QStringLiteral("favourite"), false},
        {QStringLiteral("ready"), false},
        {QStringLiteral("missing"), 3},
        {QStringLiteral("state"), QStringLiteral("missing")},
        {QStringLiteral("bytesOnDisk"),
         bytesOf({"display/Themes/white-christmas.jpg", "display/Themes/white-christmas.gif"})},
        {QStringLiteral("filesToFetch"), 3},
        {QStringLiteral("bytesToFetch"), 0},
        {QStringLiteral("bytesKnown"), false},
    };
    QCOMPARE(itemOf(items, whiteChristmas), theme);
    const QJsonObject background{
        {QStringLiteral("guid"), QString::fromLatin1(blueSilk)},
        {QStringLiteral("kind"), QStringLiteral("bgmaterial")},
        {QStringLiteral("name"), QStringLiteral("Blue Silk")},
        {QStringLiteral("themeType"), QJsonValue()},
        {QStringLiteral("favourite"), true},
        {QStringLiteral("ready"), true},
        {QStringLiteral("missing"), 0},
        {QStringLiteral("state"), QStringLiteral("current")},
        {QStringLiteral("bytesOnDisk"),
         bytesOf({"display/BgMaterial/blue-silk.jpg",
                  "BgMaterial/{20A63E69-32DC-415E-AA04-6A3D705F8290}/background.jpg"})},
        {QStringLiteral("filesToFetch"), 0},
        {QStringLiteral("bytesToFetch"), 0},
        {QStringLiteral("bytesKnown"), true},
    };
    QCOMPARE(itemOf(items, blueSilk), background);
}

void TestMvresList::listsEveryKindInTheCataloguesOrder()
{
    Mvres mvres;
    mvres.useSamples();
    QStringList kinds;
    const QJsonArray items = parsed(mvres.run(list({QStringLiteral("--json")})));
    for (const QJsonValue& item : items) {
        const QString kind = item[QStringLiteral("kind")].toString();
        if (kinds.isEmpty() || kinds.constLast() != kind)
            kinds.append(kind);
    }
    QCOMPARE(kinds.join(QLatin1Char(' ')),
             QStringLiteral("filter transition motion theme bgmaterial"));
    QCOMPARE(mvres.run(list()).lines().size(), 34);
}

void TestMvresList::listsOneKind_data()
{
    QTest::addColumn<QString>("kind");
    QTest::addColumn<QString>("word");
    QTest::addColumn<int>("count");
    const auto row = [](const char* word, const char* kind, int count) {
        QTest::newRow(word) << QString::fromLatin1(kind) << QString::fromLatin1(word) << count;
    };
    row("filter", "filter", 13);
    row("filters", "filter", 13);
    row("FILTER", "filter", 13);
    row("transition", "transition", 6);
    row("Transitions", "transition", 6);
    row("motion", "motion", 4);
    row("motionS", "motion", 4);
    row("theme", "theme", 6);
    row("Themes", "theme", 6);
    row("bgmaterial", "bgmaterial", 5);
    row("BgMaterials", "bgmaterial", 5);
}

void TestMvresList::listsOneKind()
{
    QFETCH(QString, kind);
    QFETCH(QString, word);
    QFETCH(int, count);

    Mvres mvres;
    mvres.useSamples();
    const Outcome outcome = mvres.run(list({word}));
    QCOMPARE(outcome.status, 0);
    const QStringList lines = outcome.lines();
    QCOMPARE(lines.size(), count);
    for (const QString& line : lines)
        QCOMPARE(line.mid(40, 10).trimmed(), kind);
}

void TestMvresList::unknownKindIsABadArgument()
{
    Mvres mvres;
    mvres.useSamples();
    const Outcome outcome = mvres.run(list({QStringLiteral("filterss")}));
    QCOMPARE(outcome.err,
             QByteArray("mvres: unknown kind \"filterss\": filter, transition, motion, theme or "
                        "bgmaterial\n"));
    QCOMPARE(outcome.out, QByteArray());
    QCOMPARE(outcome.status, 2);
}

void TestMvresList::withoutCatalogueItNamesBothFiles()
{
    const Mvres mvres;
    const Outcome outcome = mvres.run(list());
    QCOMPARE(QString::fromUtf8(outcome.err),
             QStringLiteral("mvres: the catalogue is empty: neither "
                            "%1/Themes/ResourceConfig/resource_config.xml nor "
                            "%2/Resource/ResourceConfig/resource_config.xml has items\n")
                 .arg(mvres.root(), mvres.installed()));
    QCOMPARE(outcome.out, QByteArray());
    QCOMPARE(outcome.status, 0);
    QCOMPARE(mvres.run(list({QStringLiteral("--json")})).out, QByteArray("[\n]\n"));
}

void TestMvresList::dependenciesCountWithHasMV_data()
{
    QTest::addColumn<QString>("setting");
    QTest::addColumn<QStringList>("param");
    QTest::addColumn<QString>("state");
    const QString missing = QStringLiteral("2 missing");
    const QString ready = QStringLiteral("ready");
    const auto param = [](const char* value) {
        return QStringList{QStringLiteral("--param"),
                           QStringLiteral("hasMV=") + QString::fromLatin1(value)};
    };
    QTest::newRow("not set") << QString() << QStringList() << missing;
    QTest::newRow("on in the settings") << QStringLiteral("1") << QStringList() << missing;
    QTest::newRow("off in the settings") << QStringLiteral("0") << QStringList() << ready;
    QTest::newRow("parameter turns it off") << QStringLiteral("1") << param("0") << ready;
    QTest::newRow("parameter turns it on") << QStringLiteral("0") << param("1") << missing;
    QTest::newRow("empty parameter turns it off") << QString() << param("") << ready;
}

void TestMvresList::dependenciesCountWithHasMV()
{
    QFETCH(QString, setting);
    QFETCH(QStringList, param);
    QFETCH(QString, state);

    Mvres mvres;
    SmallCatalogue catalogue;
    catalogue.addFilter(2, QString(), QStringLiteral("/VideoFilters/two.xml"),
                        {QStringLiteral("/VideoFilters/two.zip")});
    catalogue.addTheme(1, QStringLiteral("One"), QStringLiteral("/Themes/one.xml"));
    catalogue.writeTo(mvres.installed());
    CatalogueFiles::write(mvres.downloadedFile(QStringLiteral("/Themes/one.xml")),
                          SmallCatalogue::themeConfig({2}));
    if (!setting.isEmpty())
        mvres.set("params/hasMV", setting);
    const Outcome outcome = mvres.run(list({QStringLiteral("theme")}) + param);
    QCOMPARE(outcome.lines().size(), 1);
    QVERIFY2(outcome.lines().constFirst().endsWith(QStringLiteral("  ") + state),
             outcome.out.constData());
}

void TestMvresList::parametersReachTheCatalogue()
{
    Mvres mvres;
    mvres.useSamples();
    const Outcome outcome = mvres.run(list({QStringLiteral("filter"), QStringLiteral("--param"),
                                            QStringLiteral("disableDownloadFiter=1")}));
    QCOMPARE(outcome.lines().size(), 12);
}

void TestMvresList::alignsNamesByTheirWidthOnScreen()
{
    const Mvres mvres;
    SmallCatalogue catalogue;
    catalogue.addFilter(1, QStringLiteral("\u6625\u7bc0"), QString()); // two columns each
    catalogue.addFilter(2, QStringLiteral("F\u00eate"), QString());
    catalogue.addFilter(3, QStringLiteral("Pa\u0301ques"), QString()); // a combining accent
    catalogue.addFilter(4, QStringLiteral("Longest"), QString());
    catalogue.writeTo(mvres.installed());
    QProcess process;
    process.setProcessEnvironment(ConsoleProgram::utf8Environment());
    mvres.start(process, list());
    const QStringList lines = ConsoleProgram::end(process).lines();
    QCOMPARE(lines.size(), 4);
    QCOMPARE(lines.at(0).mid(52),
             QStringLiteral("\u6625\u7bc0     -          -          1 byte  ready"));
    QCOMPARE(lines.at(1).mid(52),
             QStringLiteral("F\u00eate     -          -          1 byte  ready"));
    QCOMPARE(lines.at(2).mid(52),
             QStringLiteral("Pa\u0301ques   -          -          1 byte  ready"));
    QCOMPARE(lines.at(3).mid(52), QStringLiteral("Longest  -          -          1 byte  ready"));
}

void TestMvresList::printsNamesAsTheyStand()
{
    const Mvres mvres;
    SmallCatalogue catalogue;
    catalogue.addFilter(1, QStringLiteral("50%4 <off> & %s"), QString());
    catalogue.writeTo(mvres.installed());
    const Outcome outcome = mvres.run(list());
    QCOMPARE(outcome.lines(),
             QStringList{CatalogueFiles::guid(1)
                         + QStringLiteral("  filter      50%4 <off> & %s  -          -          "
                                          "1 byte  ready")});
}

/// Control characters in a server's name must not move the cursor; JSON has the name unchanged.
void TestMvresList::controlCharactersBecomeBlanks()
{
    const Mvres mvres;
    SmallCatalogue catalogue;
    catalogue.addFilter(1, QStringLiteral("a\nb\tc\u009b2J"), QString());
    catalogue.writeTo(mvres.installed());
    QProcess process;
    process.setProcessEnvironment(ConsoleProgram::utf8Environment());
    mvres.start(process, list());
    const QStringList lines = ConsoleProgram::end(process).lines();
    QCOMPARE(lines.size(), 1);
    QVERIFY2(lines.constFirst().contains(QStringLiteral("  a b c 2J  -")),
             qPrintable(lines.constFirst()));
    const QJsonArray items = parsed(mvres.run(list({QStringLiteral("--json")})));
    QCOMPARE(items.at(0)[QStringLiteral("name")], QJsonValue(QStringLiteral("a\nb\tc\u009b2J")));
}

MV_TEST_MAIN(TestMvresList)

} // namespace tst_mvres_list

#include "tst_mvres_list.moc"
