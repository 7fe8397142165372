// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "browser/EUIItemRole.h"
#include "browser/list/BrowserWorld.h"
#include "browser/MVThemeSortFilterProxyModel.h"
#include "browser/SListFilter.h"
#include "support/TestMain.h"

#include <QAbstractItemModelTester>
#include <QApplication>
#include <QStandardItemModel>

#include <memory>

/// Tests which rows pass the filter, by theme type, favourite and name.
class tst_MVThemeSortFilterProxyModel : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void shownRows_data();
    void shownRows();
    void showsAllThemesAtFirst();
    void caseCountsWithoutTheFlag();
    void favouritesAreAskedWhenTheFilterIsApplied();
    void aNewTypeTakesEffectAtOnce();
    void staysConsistentWhileRowsComeAndGo();
    void orderFollowsTheRows();
    void changeOfNoRowsKeepsTheOrder();

private:
    void addRow(const QString& guid, int themeType, const QString& name);
    QStringList shown(int themeType, const QString& pattern);
    QStringList shown() const;

    std::unique_ptr<BrowserWorld> m_world;
    std::unique_ptr<QStandardItemModel> m_rows;
    std::unique_ptr<MVThemeSortFilterProxyModel> m_proxy;
};

namespace {

constexpr int othersType = 0;
constexpr int favouritesType = 1;
constexpr int festivalsType = 2;
constexpr int travelType = 3;
constexpr int banquetsType = 4;
constexpr int allTypes = 999;

/// Splits a text into names at blanks; "-" denotes the empty name.
QStringList names(const char* text)
{
    QStringList result = QString::fromLatin1(text).split(QLatin1Char(' '), Qt::SkipEmptyParts);
    result.replaceInStrings(QStringLiteral("-"), QString());
    return result;
}

} // namespace

void tst_MVThemeSortFilterProxyModel::init()
{
    m_proxy.reset();
    m_world = std::make_unique<BrowserWorld>();
    m_rows = std::make_unique<QStandardItemModel>();
    const QVector<QPair<QString, int>> themes = {
        {QStringLiteral("Sea"), othersType},        {QStringLiteral("SeaFav"), othersType},
        {QStringLiteral("Lake"), festivalsType},    {QStringLiteral("LakeFav"), festivalsType},
        {QStringLiteral("Road"), travelType},       {QStringLiteral("RoadFav"), travelType},
        {QStringLiteral("Dinner"), banquetsType},   {QStringLiteral("DinnerFav"), banquetsType},
        {QStringLiteral("TypeOne"), favouritesType}};
    for (int i = 0; i < themes.size(); ++i)
        m_world->addTheme(i, themes.at(i).first);
    m_world->addFilter(50, QStringLiteral("FilterFav"));
    m_world->load();
    for (int i = 0; i < themes.size(); ++i) {
        addRow(CatalogueFiles::guid(i), themes.at(i).second, themes.at(i).first);
        if (themes.at(i).first.endsWith(QLatin1String("Fav")))
            BrowserWorld::setFavourite(BrowserWorld::theme(i), true);
    }
    BrowserWorld::setFavourite(BrowserWorld::filter(50), true);
    addRow(CatalogueFiles::guid(50), othersType, QStringLiteral("FilterFav"));
    addRow(CatalogueFiles::guid(1).toLower(), othersType, QStringLiteral("LowerFav"));
    addRow(CatalogueFiles::guid(99), othersType, QStringLiteral("Stranger"));
    addRow(CatalogueFiles::guid(98), 7, QStringLiteral("Seven"));
    addRow(QString(), othersType, QString());

    m_proxy = std::make_unique<MVThemeSortFilterProxyModel>(nullptr);
    m_proxy->setSourceModel(m_rows.get());
    m_proxy->setFilterRole(UIItemRole_Name);
}

void tst_MVThemeSortFilterProxyModel::addRow(const QString& guid, int themeType,
                                             const QString& name)
{
    auto row = std::make_unique<QStandardItem>();
    row->setData(guid, UIItemRole_GUID);
    row->setData(themeType, UIItemRole_ThemeType);
    row->setData(name, UIItemRole_Name);
    m_rows->appendRow(row.release());
}

QStringList tst_MVThemeSortFilterProxyModel::shown(int themeType, const QString& pattern)
{
    m_proxy->setThemeType(themeType);
    m_proxy->setNamePattern(MVThemeSortFilterProxyModel::ignoringCase(pattern));
    return shown();
}

QStringList tst_MVThemeSortFilterProxyModel::shown() const
{
    QStringList result;
    for (int row = 0; row < m_proxy->rowCount(); ++row)
        result.append(m_proxy->index(row, 0).data(UIItemRole_Name).toString());
    return result;
}

void tst_MVThemeSortFilterProxyModel::shownRows_data()
{
    QTest::addColumn<int>("themeType");
    QTest::addColumn<QString>("pattern");
    QTest::addColumn<QStringList>("expected");
    const auto row = [](const char* title, int type, const char* pattern, const char* expected) {
        QTest::newRow(title) << type << QString::fromLatin1(pattern) << names(expected);
    };
    row("all", allTypes, "",
        "Sea SeaFav Lake LakeFav Road RoadFav Dinner DinnerFav TypeOne FilterFav LowerFav Stranger "
        "Seven -");
    row("all, part of a name", allTypes, "fav",
        "SeaFav LakeFav RoadFav DinnerFav FilterFav LowerFav");
    row("all, no such name", allTypes, "zzz", "");
    row("all, a pattern that an empty name matches", allTypes, "^$", "-");
    row("all, name in other case", allTypes, "sEA", "Sea SeaFav");
    row("all, end of a name", allTypes, "inner$", "Dinner");
    row("all, alternatives", allTypes, "^(sea|road)$", "Sea Road");
    row("all, any character", allTypes, "s.a$", "Sea");
    row("all, star repeats and is no wildcard", allTypes, "La*e", "");
    row("all, question mark is no wildcard", allTypes, "Lak?e$", "Lake");
    row("all, invalid pattern: open bracket", allTypes, "[", "");
    row("all, invalid pattern: open group", allTypes, "(", "");
    row("others", othersType, "", "Sea SeaFav FilterFav LowerFav Stranger -");
    row("others, part of a name", othersType, "sea", "Sea SeaFav");
    row("others, name of another type", othersType, "lake", "");
    row("others, a pattern that an empty name matches", othersType, "^$", "-");
    row("favourites", favouritesType, "", "SeaFav LakeFav RoadFav DinnerFav");
    row("favourites, part of a name", favouritesType, "ake", "LakeFav");
    row("favourites, name of no favourite", favouritesType, "sea$", "");
    row("favourites, row of that type is not a favourite", favouritesType, "typeone", "");
    row("favourites, row of that type, other name", favouritesType, "zzz", "");
    row("favourites, a pattern that an empty name matches", favouritesType, "^$", "");
    row("favourites, filter and GUID in other case", favouritesType, "(filter|lower)fav", "");
    row("festivals", festivalsType, "", "Lake LakeFav");
    row("festivals, part of a name", festivalsType, "fav", "LakeFav");
    row("festivals, no such name", festivalsType, "sea", "");
    row("travel", travelType, "", "Road RoadFav");
    row("travel, part of a name", travelType, "road$", "Road");
    row("banquets", banquetsType, "", "Dinner DinnerFav");
    row("banquets, no such name", banquetsType, "^$", "");
    row("a type of unknown meaning", 7, "", "Seven");
    row("a type of unknown meaning, no such name", 7, "sea", "");
    row("a type that no row has", 5, "", "");
    row("below every type", -1, "", "");
    row("below all", allTypes - 1, "", "");
}

void tst_MVThemeSortFilterProxyModel::shownRows()
{
    QFETCH(int, themeType);
    QFETCH(QString, pattern);
    QFETCH(QStringList, expected);
    QCOMPARE(shown(themeType, pattern), expected);
}

void tst_MVThemeSortFilterProxyModel::showsAllThemesAtFirst()
{
    QCOMPARE(m_proxy->rowCount(), m_rows->rowCount());
}

void tst_MVThemeSortFilterProxyModel::caseCountsWithoutTheFlag()
{
    m_proxy->setNamePattern(NamePattern(QStringLiteral("sea")));
    QCOMPARE(shown(), QStringList());
    m_proxy->setNamePattern(NamePattern(QStringLiteral("Sea")));
    QCOMPARE(shown(), names("Sea SeaFav"));
}

void tst_MVThemeSortFilterProxyModel::favouritesAreAskedWhenTheFilterIsApplied()
{
    QCOMPARE(shown(favouritesType, QStringLiteral("sea")), names("SeaFav"));
    BrowserWorld::setFavourite(BrowserWorld::theme(0), true);
    BrowserWorld::setFavourite(BrowserWorld::theme(1), false);
    QCOMPARE(shown(favouritesType, QStringLiteral("sea")), names("Sea"));
}

void tst_MVThemeSortFilterProxyModel::aNewTypeTakesEffectAtOnce()
{
    m_proxy->setThemeType(travelType);
    QCOMPARE(shown(), names("Road RoadFav"));
    m_proxy->setThemeType(travelType);
    QCOMPARE(shown(), names("Road RoadFav"));
    m_proxy->setThemeType(banquetsType);
    QCOMPARE(shown(), names("Dinner DinnerFav"));
}

void tst_MVThemeSortFilterProxyModel::staysConsistentWhileRowsComeAndGo()
{
    const QAbstractItemModelTester tester(m_proxy.get(),
                                          QAbstractItemModelTester::FailureReportingMode::QtTest);
    for (const int type : {othersType, favouritesType, travelType, allTypes})
        shown(type, QStringLiteral("a"));
    addRow(CatalogueFiles::guid(97), othersType, QStringLiteral("Late"));
    QVERIFY(shown().contains(QStringLiteral("Late")));
    m_rows->removeRow(0);
    QVERIFY(!shown().contains(QStringLiteral("Sea")));
    m_rows->clear();
    QCOMPARE(m_proxy->rowCount(), 0);
}

/// Those of a model of the host's own, which nobody sorts again.
void tst_MVThemeSortFilterProxyModel::orderFollowsTheRows()
{
    m_rows->clear();
    for (const char* name : {"Cave", "Bay", "Dune"})
        addRow(CatalogueFiles::guid(1), othersType, QString::fromLatin1(name));
    SListFilter byName;
    byName.order = EListOrder::Name;
    m_proxy->setFilter(byName);
    QCOMPARE(shown(), names("Bay Cave Dune"));
    m_rows->item(0)->setData(QStringLiteral("Fjord"), UIItemRole_Name);
    QCOMPARE(shown(), names("Bay Dune Fjord"));
    addRow(CatalogueFiles::guid(1), othersType, QStringLiteral("Atoll"));
    m_rows->insertRow(0, m_rows->takeRow(3));
    QCOMPARE(shown(), names("Atoll Bay Dune Fjord"));
    m_rows->removeRow(1);
    m_rows->item(0)->setData(QStringLiteral("Cliff"), UIItemRole_Name);
    QCOMPARE(shown(), names("Bay Cliff Dune"));
    m_rows->setSortRole(UIItemRole_Name);
    m_rows->sort(0, Qt::DescendingOrder);
    m_rows->item(0)->setData(QStringLiteral("Alp"), UIItemRole_Name);
    QCOMPARE(shown(), names("Alp Bay Cliff"));
    m_rows->clear();
    for (const char* name : {"Plain", "Oasis"})
        addRow(CatalogueFiles::guid(1), othersType, QString::fromLatin1(name));
    QCOMPARE(shown(), names("Oasis Plain"));
}

/// Some models announce a change without saying of what.
void tst_MVThemeSortFilterProxyModel::changeOfNoRowsKeepsTheOrder()
{
    m_rows->clear();
    for (const char* name : {"Cave", "Bay"})
        addRow(CatalogueFiles::guid(1), othersType, QString::fromLatin1(name));
    SListFilter byName;
    byName.order = EListOrder::Name;
    m_proxy->setFilter(byName);
    QCOMPARE(shown(), names("Bay Cave"));
    emit m_rows->dataChanged(QModelIndex(), QModelIndex());
    m_rows->item(1)->setData(QStringLiteral("Dune"), UIItemRole_Name);
    QCOMPARE(shown(), names("Cave Dune"));
}

MV_WIDGET_TEST_MAIN(tst_MVThemeSortFilterProxyModel)

#include "tst_MVThemeSortFilterProxyModel.moc"
