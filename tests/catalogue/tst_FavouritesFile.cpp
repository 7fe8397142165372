// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "catalogue/FavouritesFile.h"
#include "CatalogueFixture.h"
#include "FavouriteSignals.h"
#include "support/UnusualFiles.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

using Files = CatalogueFiles;
using Mgr = MVThemeMgr;

/// Tests exporting and importing favourites, and that a refused file changes nothing.
class tst_FavouritesFile : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void holdsWhatIsMarked();
    void holdsMarksOfUnknownItems();
    void isEmptyWithoutFavourites();
    void replacesAFile();
    void replacesTheFileBehindALink();
    void readingMarks_data();
    void readingMarks();
    void readingAddsToTheMarks();
    void readingTellsOfTheCataloguesOwnItems();
    void whatIsWrittenCanBeRead();
    void refusedContent_data();
    void refusedContent();
    void anythingButAFileIsRefused_data();
    void anythingButAFileIsRefused();
    void whereNoFileCanBeWritten_data();
    void whereNoFileCanBeWritten();

private:
    static Mgr& mgr() { return CatalogueFixture::manager(); }
    static void mark(ECfgItemType kind, int number);
    QString file() const { return m_fixture.base() + QStringLiteral("/favourites.json"); }
    QJsonArray written();
    static QStringList marks();

    CatalogueFixture m_fixture;
};

namespace {

QJsonObject entry(const char* kind, int number, const char* name)
{
    return {{QStringLiteral("kind"), QString::fromLatin1(kind)},
            {QStringLiteral("guid"), Files::guid(number)},
            {QStringLiteral("name"), QString::fromUtf8(name)}};
}

QByteArray document(const QJsonArray& entries)
{
    return QJsonDocument(
               QJsonObject{{QStringLiteral("format"), 1}, {QStringLiteral("favourites"), entries}})
        .toJson();
}

} // namespace

/// Provides themes 1 and 2, filter 3 and background 4.
void tst_FavouritesFile::init()
{
    m_fixture.fresh();
    const auto group = [](const char* name, const QVector<int>& numbers) {
        QVector<Files::CfgItem> items;
        for (const int number : numbers)
            items.append({Files::guid(number), QString(), {}});
        return Files::cfgGroup(QString::fromLatin1(name), items);
    };
    const auto shown = [](int number, const char* name) {
        return Files::DisplayItem{Files::guid(number), QString::fromUtf8(name), QString()};
    };
    Files::write(
        m_fixture.configXml(),
        Files::document(group("Theme", {1, 2}) + group("Filter", {3}) + group("BgMaterial", {4})));
    Files::write(m_fixture.displayXml(),
                 Files::document(
                     Files::displayThemes(
                         {{QStringLiteral("travel"), {shown(1, "Caf\xc3\xa9"), shown(2, "Two")}}})
                     + Files::displayCategory(QStringLiteral("Filter"), {shown(3, "Sepia")})
                     + Files::displayCategory(QStringLiteral("BgMaterial"), {shown(4, "Blue")})));
    mgr().load(true);
    QCOMPARE(mgr().getThemes_Display().size(), 2);
    QCOMPARE(mgr().getDisplayXML().vecBgMaterial.size(), 1);
}

void tst_FavouritesFile::mark(ECfgItemType kind, int number)
{
    SCfg_Item item;
    item.m_eType = kind;
    item.m_qsGUID = Files::guid(number);
    item.m_bCollected = true;
    mgr().setItemCollected(&item);
}

QStringList tst_FavouritesFile::marks()
{
    return mgr().favourites(eCfgItem_Theme) + QStringList{QStringLiteral("and")}
    + mgr().favourites(eCfgItem_Filter);
}

/// Returns the list in a newly written file after verifying the rest of the document.
QJsonArray tst_FavouritesFile::written()
{
    FavouritesFile favourites;
    if (!favourites.write(file()) || !favourites.errorText().isEmpty())
        return {favourites.errorText()};
    const QJsonObject document = QJsonDocument::fromJson(Files::read(file())).object();
    const QJsonArray list = document.value(QStringLiteral("favourites")).toArray();
    const bool complete = document.size() == 2 && document.value(QStringLiteral("format")) == 1
        && favourites.count() == list.size();
    return complete ? list : QJsonArray{QString::fromUtf8(Files::read(file()))};
}

void tst_FavouritesFile::holdsWhatIsMarked()
{
    mark(eCfgItem_BgMaterial, 4);
    mark(eCfgItem_Filter, 3);
    mark(eCfgItem_Theme, 1);
    QCOMPARE(written(),
             (QJsonArray{entry("theme", 1, "Caf\xc3\xa9"), entry("filter", 3, "Sepia"),
                         entry("background", 4, "Blue")}));
}

/// Filters and backgrounds share their marks, so either kind counts as a filter.
void tst_FavouritesFile::holdsMarksOfUnknownItems()
{
    mark(eCfgItem_Theme, 11);
    mark(eCfgItem_BgMaterial, 14);
    mark(eCfgItem_Theme, 2);
    QCOMPARE(
        written(),
        (QJsonArray{entry("theme", 2, "Two"), entry("theme", 11, ""), entry("filter", 14, "")}));
}

void tst_FavouritesFile::isEmptyWithoutFavourites()
{
    SCfg_Item item;
    item.m_eType = eCfgItem_Theme;
    item.m_qsGUID = Files::guid(11);
    mgr().setItemCollected(&item); // as an item that was once a favourite
    QCOMPARE(written(), QJsonArray());
}

void tst_FavouritesFile::replacesAFile()
{
    Files::write(file(), QByteArray(100000, 'x'));
    mark(eCfgItem_Theme, 1);
    QCOMPARE(written(), QJsonArray{entry("theme", 1, "Caf\xc3\xa9")});
}

void tst_FavouritesFile::replacesTheFileBehindALink()
{
    const QString target = m_fixture.base() + QStringLiteral("/elsewhere/target.json");
    Files::write(target, "old");
    MV_LINK(QStringLiteral("elsewhere/target.json"), file());
    mark(eCfgItem_Theme, 1);
    QCOMPARE(written(), QJsonArray{entry("theme", 1, "Caf\xc3\xa9")});
    QVERIFY(UnusualFiles::isLink(file()));
    QCOMPARE(Files::read(target), Files::read(file()));
}

void tst_FavouritesFile::readingMarks_data()
{
    QTest::addColumn<QJsonArray>("entries");
    QTest::addColumn<QStringList>("themes");
    QTest::addColumn<QStringList>("others");
    QTest::addColumn<int>("unknown");
    const QStringList none;
    QTest::newRow("nothing") << QJsonArray() << none << none << 0;
    QTest::newRow("theme") << QJsonArray{entry("theme", 1, "")} << QStringList{Files::guid(1)}
                           << none << 0;
    QTest::newRow("filter and background")
        << QJsonArray{entry("filter", 3, ""), entry("background", 4, "")} << none
        << QStringList{Files::guid(3), Files::guid(4)} << 0;
    QTest::newRow("names are not read")
        << QJsonArray{entry("theme", 1, "Two")} << QStringList{Files::guid(1)} << none << 0;
    QTest::newRow("not in the catalogue")
        << QJsonArray{entry("theme", 2, ""), entry("theme", 11, ""), entry("background", 14, "")}
        << QStringList{Files::guid(2), Files::guid(11)} << QStringList{Files::guid(14)} << 2;
    QTest::newRow("a theme under another kind")
        << QJsonArray{entry("filter", 1, "")} << none << QStringList{Files::guid(1)} << 1;
}

void tst_FavouritesFile::readingMarks()
{
    QFETCH(QJsonArray, entries);
    QFETCH(QStringList, themes);
    QFETCH(QStringList, others);
    QFETCH(int, unknown);
    Files::write(file(), document(entries));
    FavouritesFile favourites;
    for (int time = 0; time < 2; ++time) // each reading counts from zero
        QVERIFY2(favourites.read(file()), qPrintable(favourites.errorText()));
    QCOMPARE(favourites.count(), entries.size());
    QCOMPARE(favourites.unknown(), unknown);
    QCOMPARE(mgr().favourites(eCfgItem_Theme), themes);
    QCOMPARE(mgr().favourites(eCfgItem_Filter), others);
}

void tst_FavouritesFile::readingAddsToTheMarks()
{
    mark(eCfgItem_Theme, 1);
    mark(eCfgItem_Filter, 12);
    Files::write(file(), document({entry("theme", 2, ""), entry("theme", 1, "")}));
    FavouritesFile favourites;
    QVERIFY(favourites.read(file()));
    QCOMPARE(mgr().favourites(eCfgItem_Theme), (QStringList{Files::guid(1), Files::guid(2)}));
    QCOMPARE(mgr().favourites(eCfgItem_Filter), QStringList{Files::guid(12)});
}

void tst_FavouritesFile::readingTellsOfTheCataloguesOwnItems()
{
    Files::write(file(), document({entry("theme", 2, ""), entry("background", 4, "")}));
    const FavouriteSignals told;
    FavouritesFile favourites;
    QVERIFY(favourites.read(file()));
    const SCfg_Item* const theme = mgr().findItemByIDFromDisplay(eCfgItem_Theme, Files::guid(2));
    const SCfg_Item* const background =
        mgr().findItemByIDFromDisplay(eCfgItem_BgMaterial, Files::guid(4));
    QCOMPARE(told.of(0), QVector<const SCfg_Item*>{theme});
    QCOMPARE(told.of(1), QVector<const SCfg_Item*>{background});
    QVERIFY(theme->m_bCollected && background->m_bCollected);
}

void tst_FavouritesFile::whatIsWrittenCanBeRead()
{
    for (const int number : {1, 2, 11})
        mark(eCfgItem_Theme, number);
    for (const int number : {3, 4, 14})
        mark(eCfgItem_Filter, number);
    const QStringList before = marks();
    QCOMPARE(written().size(), 6);
    const QByteArray content = Files::read(file());
    init();
    QVERIFY(marks() != before);
    Files::write(file(), content);
    FavouritesFile favourites;
    QVERIFY(favourites.read(file()));
    QCOMPARE(marks(), before);
}

void tst_FavouritesFile::refusedContent_data()
{
    QTest::addColumn<QByteArray>("content");
    const auto entries = [](const QByteArray& list) {
        return "{\"format\": 1, \"favourites\": [" + list + "]}";
    };
    const QByteArray guid = Files::guid(1).toLatin1();
    const QByteArray right = R"({"kind": "theme", "guid": ")" + guid + "\"}";
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("no JSON") << QByteArray("favourites");
    QTest::newRow("cut off") << entries(right).chopped(3);
    QTest::newRow("an array") << '[' + right + ']';
    QTest::newRow("another format") << entries(right).replace(": 1", ": 2");
    QTest::newRow("format as text") << entries(right).replace(": 1", ": \"1\"");
    QTest::newRow("no format") << "{\"favourites\": [" + right + "]}";
    QTest::newRow("no list") << QByteArray("{\"format\": 1}");
    QTest::newRow("an object as list") << QByteArray("{\"format\": 1, \"favourites\": {}}");
    QTest::newRow("entry is a text") << entries('"' + guid + '"');
    QTest::newRow("entry is empty") << entries("{}");
    QTest::newRow("no kind") << entries("{\"guid\": \"" + guid + "\"}");
    QTest::newRow("kind without favourites")
        << entries(R"({"kind": "motion", "guid": ")" + guid + "\"}");
    QTest::newRow("kind in capitals") << entries(R"({"kind": "Theme", "guid": ")" + guid + "\"}");
    QTest::newRow("no GUID") << entries(R"({"kind": "theme"})");
    QTest::newRow("a name as GUID") << entries(R"({"kind": "theme", "guid": "Two"})");
    QTest::newRow("zero GUID") << entries(
        R"({"kind": "theme", "guid": "{00000000-0000-0000-0000-000000000000}"})");
    QTest::newRow("wrong behind a right one") << entries(right + ", {}");
    QTest::newRow("too large") << QByteArray(16 * 1024 * 1024, ' ') + entries(right);
}

void tst_FavouritesFile::refusedContent()
{
    QFETCH(QByteArray, content);
    mark(eCfgItem_Theme, 2);
    const QStringList before = marks();
    Files::write(file(), content);
    const FavouriteSignals told;
    FavouritesFile favourites;
    QVERIFY(!favourites.read(file()));
    QVERIFY2(favourites.errorText().startsWith(file()), qPrintable(favourites.errorText()));
    QCOMPARE(favourites.count(), 0);
    QCOMPARE(marks(), before);
    QVERIFY(told.of(0).isEmpty() && told.of(1).isEmpty());
    QCOMPARE(Files::read(file()), content);
}

void tst_FavouritesFile::anythingButAFileIsRefused_data()
{
    QTest::addColumn<QString>("path"); // BASE is replaced by the test's folder
    QTest::newRow("missing") << QStringLiteral("BASE/none.json");
    QTest::newRow("folder") << QStringLiteral("BASE");
    QTest::newRow("device without an end") << UnusualFiles::endlessDevice();
    if (UnusualFiles::hasPipes)
        QTest::newRow("pipe that nobody writes") << QStringLiteral("BASE/pipe");
}

void tst_FavouritesFile::anythingButAFileIsRefused()
{
    QFETCH(QString, path);
    path.replace(QStringLiteral("BASE"), m_fixture.base());
    if (path.endsWith(QLatin1String("pipe")))
        UnusualFiles::makePipe(path);
    FavouritesFile favourites;
    QVERIFY(!favourites.read(path));
    const QString beginning = path + QStringLiteral(" cannot be read: ");
    QVERIFY2(favourites.errorText().startsWith(beginning)
                 && favourites.errorText().size() > beginning.size(),
             qPrintable(favourites.errorText()));
    QCOMPARE(marks(), QStringList{QStringLiteral("and")});
}

void tst_FavouritesFile::whereNoFileCanBeWritten_data()
{
    QTest::addColumn<QString>("path");
    QTest::newRow("no such folder") << QStringLiteral("BASE/none/favourites.json");
    QTest::newRow("folder") << QStringLiteral("BASE/folder");
    QTest::newRow("a file as folder") << QStringLiteral("/dev/null/favourites.json");
}

void tst_FavouritesFile::whereNoFileCanBeWritten()
{
    QFETCH(QString, path);
    path.replace(QStringLiteral("BASE"), m_fixture.base());
    QVERIFY(QDir().mkpath(m_fixture.base() + QStringLiteral("/folder")));
    mark(eCfgItem_Theme, 1);
    const QStringList before = CatalogueFixture::entriesBelow(m_fixture.base());
    FavouritesFile favourites;
    QVERIFY(!favourites.write(path));
    const QString beginning = path + QStringLiteral(" cannot be written: ");
    QVERIFY2(favourites.errorText().startsWith(beginning)
                 && favourites.errorText().size() > beginning.size(),
             qPrintable(favourites.errorText()));
    QCOMPARE(CatalogueFixture::entriesBelow(m_fixture.base()), before);
}

MV_TEST_MAIN(tst_FavouritesFile)
#include "tst_FavouritesFile.moc"
