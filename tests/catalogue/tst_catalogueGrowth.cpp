// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "catalogue/BuiltinThemes.h"
#include "catalogue/GuidIndex.h"
#include "CatalogueFixture.h"
#include "support/Growth.h"
#include "support/ProcessorTime.h"

using Files = CatalogueFiles;
using Mgr = MVThemeMgr;

/// Tests that a catalogue's cost grows linearly with its size, not quadratically.
class tst_catalogueGrowth : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void askingAndSavingFavourites();
    void markingFavourites();
    void parsingThemes();
    void extractingBuiltinItems();
    void findingItems();
    void indexFindsTheFirstOfEqualGuids();

private:
    static Mgr& mgr() { return CatalogueFixture::manager(); }
    /// Returns the seconds that one call takes to query or mark `count` favourites.
    double favouriteTime(int count, bool isMarking);
    /// Returns the seconds to parse 400 themes that each use the last of `filters` filters.
    double parseTime(int filters);
    double extractTime(int elements);
    void writeCatalogue(int filters, int themes) const;
    void writeThemeConfig(int elements, const QString& filter) const;

    CatalogueFixture m_fixture;
};

namespace {

/// Returns items with the GUIDs 0 to count - 1 in scrambled order.
QVector<SCfg_Item> shuffledThemes(int count)
{
    constexpr qint64 step = 7919; // a prime
    QVector<SCfg_Item> items(count);
    for (int i = 0; i < count; ++i) {
        items[i].m_eType = eCfgItem_Theme;
        items[i].m_qsGUID = Files::guid(static_cast<int>(i * step % count));
    }
    return items;
}

} // namespace

void tst_catalogueGrowth::init()
{
    m_fixture.fresh();
    CatalogueFixture::setParam("hasMV", "1");
}

double tst_catalogueGrowth::favouriteTime(int count, bool isMarking)
{
    QVector<SCfg_Item> items = shuffledThemes(count);
    return ProcessorTime::least([&] {
        Files::write(m_fixture.collectFile("ThemeCollect"), "{}");
        mgr().readThemeCollect();
        for (SCfg_Item& item : items) {
            item.m_bCollected = isMarking;
            if (isMarking)
                mgr().setThemesCollected(&item);
            else
                mgr().isThemeCollect(&item);
        }
        mgr().saveThemeCollect();
    });
}

void tst_catalogueGrowth::askingAndSavingFavourites()
{
    constexpr int few = 5000;
    const auto measure = [this](int count) { return favouriteTime(count, false); };
    QCOMPARE(Growth::excess(measure, few), QString());
    const QByteArray saved = Files::read(m_fixture.collectFile("ThemeCollect"));
    QCOMPARE(saved.count(": false"), Growth::times * few);
}

void tst_catalogueGrowth::markingFavourites()
{
    constexpr int few = 5000;
    const auto measure = [this](int count) { return favouriteTime(count, true); };
    QCOMPARE(Growth::excess(measure, few), QString());
    QCOMPARE(mgr().favourites(eCfgItem_Theme).size(), Growth::times * few);
}

void tst_catalogueGrowth::writeCatalogue(int filters, int themes) const
{
    QVector<Files::CfgItem> themeItems = Files::cfgItems(themes);
    for (Files::CfgItem& theme : themeItems)
        theme.urlCnf = QStringLiteral("/theme.xml");
    Files::write(m_fixture.configXml(),
                 Files::document(Files::cfgGroup(QStringLiteral("Filter"), Files::cfgItems(filters))
                                 + Files::cfgGroup(QStringLiteral("Theme"), themeItems)));
    Files::write(
        m_fixture.displayXml(),
        Files::document(
            Files::displayCategory(QStringLiteral("Filter"), Files::displayItems(filters))
            + Files::displayThemes({{QStringLiteral("travel"), Files::displayItems(themes)}})));
}

void tst_catalogueGrowth::writeThemeConfig(int elements, const QString& filter) const
{
    const QByteArray element =
        "<Item><Filter><GUID>" + filter.toLatin1() + "</GUID></Filter></Item>";
    Files::write(m_fixture.root() + QStringLiteral("/Themes/config/PQD/Download/theme.xml"),
                 "<Theme>" + element.repeated(elements) + "</Theme>");
}

double tst_catalogueGrowth::parseTime(int filters)
{
    constexpr int themes = 400;
    constexpr int elements = 10;
    writeCatalogue(filters, themes);
    writeThemeConfig(elements, Files::guid(filters - 1));
    mgr().load(true);
    return ProcessorTime::least([] { mgr().parseThemes(); });
}

void tst_catalogueGrowth::parsingThemes()
{
    constexpr int few = 100;
    constexpr int many = 20000;
    constexpr double max = 4; // the index is built once; a search per theme took longer
    const auto measure = [this](int filters) { return parseTime(filters); };
    QCOMPARE(Growth::excess(measure, few, many, max), QString());
    const SThemes_a* const parsed = mgr().getThemes_Display().last().parsedTheme();
    QVERIFY(parsed);
    QCOMPARE(parsed->m_vecItems.last().at(eDependType_Filter).m_pItem,
             mgr().findItemByIDFromConfig(eCfgItem_Filter, Files::guid(many - 1)));
}

double tst_catalogueGrowth::extractTime(int elements)
{
    constexpr int filters = 300;
    writeCatalogue(filters, 2);
    writeThemeConfig(elements, Files::guid(filters - 1));
    mgr().load(true);
    hostSettings().developerResourceRoot = m_fixture.base() + QStringLiteral("/full");
    QDir().mkpath(hostSettings().developerResourceRoot + QStringLiteral("/config"));
    bool isMade = true;
    const double seconds = ProcessorTime::least([&] {
        QString error;
        isMade = BuiltinThemes::create(&error) && isMade;
    });
    return isMade ? seconds : -1;
}

void tst_catalogueGrowth::extractingBuiltinItems()
{
    constexpr int few = 10;
    constexpr int many = 20000;
    constexpr double max = 4; // an item that is used often is copied once
    const auto measure = [this](int elements) { return extractTime(elements); };
    QCOMPARE(Growth::excess(measure, few, many, max), QString());
}

void tst_catalogueGrowth::findingItems()
{
    constexpr int few = 2000;
    constexpr double max = 120; // searching is the only work here
    const auto findAll = [](int count) {
        const QVector<SCfg_Item> items = shuffledThemes(count);
        int found = 0;
        const double seconds = ProcessorTime::least([&] {
            GuidIndex index(items);
            found = 0;
            for (const SCfg_Item& item : items)
                found += index.findItem(item.m_qsGUID) == &item ? 1 : 0;
        });
        return found == count ? seconds : -1;
    };
    QCOMPARE(Growth::excess(findAll, few, Growth::times * few, max), QString());
}

void tst_catalogueGrowth::indexFindsTheFirstOfEqualGuids()
{
    QVector<SCfg_Item> items = shuffledThemes(3) + shuffledThemes(3);
    GuidIndex index(items);
    for (int search = 0; search < 100; ++search) { // scanned first, then indexed
        QCOMPARE(index.find(items.at(search % 3).m_qsGUID), search % 3);
        QCOMPARE(index.find(Files::guid(3)), -1);
        QCOMPARE(index.find(items.at(0).m_qsGUID.toLower()), -1);
        QVERIFY(!index.findItem(QString()));
    }
}

MV_TEST_MAIN(tst_catalogueGrowth)
#include "tst_catalogueGrowth.moc"
