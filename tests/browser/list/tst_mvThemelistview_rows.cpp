// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "browser/EUIItemRole.h"
#include "browser/list/BrowserWorld.h"
#include "browser/list/ListWindow.h"
#include "browser/MVThemeItemWdg.h"
#include "browser/mvThemelistview.h"
#include "browser/MVThemeSortFilterProxyModel.h"
#include "catalogue/MVThemeMgr.h"
#include "support/TestMain.h"

#include <QAbstractItemModelTester>
#include <QApplication>
#include <QSignalSpy>
#include <QStandardItemModel>

#include <memory>

namespace tst_mvThemelistview_rows {

/// Tests how a list creates and removes rows and cells.
class tst_mvThemelistview_rows : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void rowsOfTheCatalogue_data();
    void rowsOfTheCatalogue();
    void rolesAndTypes();
    void moreRow_data();
    void moreRow();
    void moreRowHasItsData();
    void argumentsOfFillingDoNotCount();
    void fillingTwiceAppends();
    void listOfNoTypeStaysEmpty();
    void unknownItemGetsAnEmptyCell();
    void addsOneItem();
    void addedItemIsTheLastShownRow();
    void opensEachCellOnce();
    void clearing();
    void clearingTwice();
    void clearsBeforeACatalogueIsReloaded();
    void clearsASelectionBeforeACatalogueIsReloaded();
    void modelsStayConsistent();
    void twoListsAtATime();

private:
    std::unique_ptr<BrowserWorld> m_world;
};

void tst_mvThemelistview_rows::init()
{
    m_world = std::make_unique<BrowserWorld>();
    m_world->addTheme(1, QStringLiteral("Zebra"), BrowserWorld::OnDisk, QStringLiteral("travel"));
    m_world->addTheme(2, QStringLiteral("Ape"), BrowserWorld::OnDisk, QStringLiteral("festivals"));
    m_world->addTheme(3, QStringLiteral("Lion"), BrowserWorld::OnServer);
    m_world->addFilter(12, QStringLiteral("Warm"));
    m_world->addFilter(11, QStringLiteral("Cold"), BrowserWorld::OnServer);
    m_world->addNoneFilter();
    m_world->addBackground(21, QStringLiteral("Wood"));
    m_world->load();
}

void tst_mvThemelistview_rows::rowsOfTheCatalogue_data()
{
    QTest::addColumn<EUIItemType>("type");
    QTest::addColumn<QStringList>("names");
    const QStringList filters{QStringLiteral("Warm"), QStringLiteral("Cold"),
                              QStringLiteral("None")};
    QTest::newRow("themes") << UIItem_Themes
                            << QStringList{QStringLiteral("Zebra"), QStringLiteral("Ape"),
                                           QStringLiteral("Lion")};
    QTest::newRow("filters") << UIItem_Filters << filters;
    QTest::newRow("large filters") << UIItem_FiltersLarge << filters;
    QTest::newRow("backgrounds") << UIItem_BgMaterial << QStringList{QStringLiteral("Wood")};
}

void tst_mvThemelistview_rows::rowsOfTheCatalogue()
{
    QFETCH(EUIItemType, type);
    QFETCH(QStringList, names);
    ListWindow list(type);
    list.fill();
    QCOMPARE(list.shownNames(), names);
    QCOMPARE(list.rows()->rowCount(), names.size());
    for (int row = 0; row < names.size(); ++row) {
        const MVThemeItemWdg* const cell = list.cell(row);
        QVERIFY(cell);
        QVERIFY(cell->isVisible());
        QCOMPARE(cell->getItem()->m_qsName, names.at(row));
        QCOMPARE(QByteArray(cell->metaObject()->className()),
                 QByteArray(type == UIItem_Filters || type == UIItem_BgMaterial
                                ? "FiterItemWdg"
                                : "MVThemeItemWdg"));
    }
}

void tst_mvThemelistview_rows::rolesAndTypes()
{
    ListWindow list(UIItem_Themes);
    list.fill();
    const QModelIndex index = list.proxy()->index(1, 0);
    QCOMPARE(index.data(256), QVariant(CatalogueFiles::guid(2)));
    QCOMPARE(index.data(256).userType(), static_cast<int>(QMetaType::QString));
    QCOMPARE(index.data(257), QVariant(2));
    QCOMPARE(index.data(257).userType(), static_cast<int>(QMetaType::Int));
    QCOMPARE(index.data(258), QVariant(QStringLiteral("Ape")));
    QCOMPARE(index.data(258).userType(), static_cast<int>(QMetaType::QString));
    QCOMPARE(index.data(261).userType(), static_cast<int>(QMetaType::QObjectStar));
    QVERIFY(qobject_cast<MVThemeItemWdg*>(index.data(261).value<QObject*>()));
    QCOMPARE(list.proxy()->index(0, 0).data(257), QVariant(3));
    QCOMPARE(list.proxy()->index(2, 0).data(257), QVariant(0));
    for (const int role : {259, 260, 262, static_cast<int>(Qt::DisplayRole)})
        QVERIFY(!index.data(role).isValid());
}

void tst_mvThemelistview_rows::moreRow_data()
{
    QTest::addColumn<EUIItemType>("type");
    QTest::addColumn<QString>("address");
    QTest::addColumn<bool>("expected");
    const QString address = QStringLiteral("https://example.com/");
    QTest::newRow("themes with an address") << UIItem_Themes << address << true;
    QTest::newRow("themes, any text") << UIItem_Themes << QStringLiteral(" ") << true;
    QTest::newRow("themes, zero") << UIItem_Themes << QStringLiteral("0") << true;
    QTest::newRow("themes, empty") << UIItem_Themes << QString() << false;
    QTest::newRow("filters") << UIItem_Filters << address << false;
    QTest::newRow("large filters") << UIItem_FiltersLarge << address << false;
    QTest::newRow("backgrounds") << UIItem_BgMaterial << address << false;
    QTest::newRow("no type") << UIItem_None << address << false;
}

void tst_mvThemelistview_rows::moreRow()
{
    QFETCH(EUIItemType, type);
    QFETCH(QString, address);
    QFETCH(bool, expected);
    ListWindow list(type);
    list.fill();
    const int rows = list.rows()->rowCount();
    list.view()->clear();
    BrowserWorld::setParam("url_slidershow", address);
    list.fill();
    QCOMPARE(list.rows()->rowCount(), expected ? rows + 1 : rows);
}

void tst_mvThemelistview_rows::moreRowHasItsData()
{
    BrowserWorld::setParam("url_slidershow", QStringLiteral("https://example.com/"));
    ListWindow list(UIItem_Themes);
    list.fill();
    const QModelIndex more = list.rows()->index(3, 0);
    QCOMPARE(more.data(256), QVariant(QString()));
    QCOMPARE(more.data(257), QVariant(0));
    QCOMPARE(more.data(258), QVariant(QString()));
    QVERIFY(list.cell(3));
    QVERIFY(!list.cell(3)->getItem());
    QCOMPARE(pageOf(list.cell(3)), QStringLiteral("pageMore"));
}

void tst_mvThemelistview_rows::argumentsOfFillingDoNotCount()
{
    const ListWindow list(UIItem_Themes);
    const QSignalSpy applied(list.view(), &mvThemelistview::sigThemeItemClicked);
    list.view()->initData(QUuid(CatalogueFiles::guid(2)), true);
    QCOMPARE(list.rows()->rowCount(), 3);
    QVERIFY(!isMarked(list.cell(1)));
    QCOMPARE(applied.size(), 0);
}

void tst_mvThemelistview_rows::fillingTwiceAppends()
{
    ListWindow list(UIItem_BgMaterial);
    list.fill();
    list.fill();
    QCOMPARE(list.rows()->rowCount(), 2);
    QVERIFY(list.cell(0) && list.cell(1) && list.cell(0) != list.cell(1));
}

void tst_mvThemelistview_rows::listOfNoTypeStaysEmpty()
{
    ListWindow list(UIItem_None);
    list.fill();
    QCOMPARE(list.rows()->rowCount(), 0);
    QCOMPARE(list.cellCount(), 0);
}

void tst_mvThemelistview_rows::unknownItemGetsAnEmptyCell()
{
    ListWindow list(UIItem_Themes);
    SCfg_Item stranger;
    stranger.m_qsGUID = CatalogueFiles::guid(99);
    stranger.m_qsName = QStringLiteral("Stranger");
    list.view()->addItem(stranger);
    list.fill();
    const QModelIndex index = list.rows()->index(0, 0);
    QVERIFY(!index.data(UIItemRole_Widget).isValid());
    QVERIFY(list.view()->isPersistentEditorOpen(list.proxy()->index(0, 0)));
    QCOMPARE(list.cellCount(), 3);
    list.view()->selFilterItemByGUID(QUuid(stranger.m_qsGUID));
    list.view()->selThemeItem(&stranger);
    list.view()->resetItemData();
    list.view()->adjustItem();
    list.view()->clear();
    QCOMPARE(list.rows()->rowCount(), 0);
}

void tst_mvThemelistview_rows::addsOneItem()
{
    const ListWindow list(UIItem_Themes);
    list.view()->addItem(*BrowserWorld::theme(2));
    QCOMPARE(list.rows()->rowCount(), 1);
    const QModelIndex index = list.rows()->index(0, 0);
    QCOMPARE(index.data(256), QVariant(CatalogueFiles::guid(2)));
    QCOMPARE(index.data(257), QVariant(2));
    QCOMPARE(index.data(258), QVariant(QStringLiteral("Ape")));
    QVERIFY(list.cell(0));
    QCOMPARE(list.cell(0)->getItem(), BrowserWorld::theme(2));
}

void tst_mvThemelistview_rows::addedItemIsTheLastShownRow()
{
    BrowserWorld::setParam("url_slidershow", QStringLiteral("https://example.com/"));
    ListWindow list(UIItem_Themes);
    list.fill();
    list.view()->addItem(*BrowserWorld::theme(1));
    QCOMPARE(list.rows()->rowCount(), 5);
    QVERIFY(list.cell(4));
    QCOMPARE(list.cell(4)->getItem(), BrowserWorld::theme(1));
    QCOMPARE(list.shownNames().constLast(), QStringLiteral("Zebra"));
}

void tst_mvThemelistview_rows::opensEachCellOnce()
{
    ListWindow list(UIItem_Themes);
    list.fill();
    const MVThemeItemWdg* const first = list.cell(0);
    for (int i = 0; i < 3; ++i)
        list.view()->updateItemState();
    QCOMPARE(list.cell(0), first);
    QCOMPARE(list.cellCount(), 3);
}

void tst_mvThemelistview_rows::clearing()
{
    ListWindow list(UIItem_Themes);
    list.fill();
    const QPointer<MVThemeItemWdg> cell(list.cell(0));
    const QSignalSpy applied(list.view(), &mvThemelistview::sigThemeItemClicked);
    list.view()->clear();
    QCOMPARE(list.rows()->rowCount(), 0);
    QCOMPARE(list.proxy()->rowCount(), 0);
    QVERIFY(cell); // its event may be in progress
    QVERIFY(!cell->isVisible());
    QTRY_COMPARE(list.cellCount(), 0);
    QVERIFY(!cell);
    QCOMPARE(applied.size(), 0);
    list.fill();
    QCOMPARE(list.cellCount(), 3);
}

void tst_mvThemelistview_rows::clearingTwice()
{
    ListWindow list(UIItem_Themes);
    list.view()->clear();
    list.fill();
    list.view()->clear();
    list.view()->clear();
    list.view()->onClearSelect();
    QCOMPARE(list.rows()->rowCount(), 0);
}

void tst_mvThemelistview_rows::clearsBeforeACatalogueIsReloaded()
{
    ListWindow list(UIItem_Themes);
    list.fill();
    list.moveTo(list.cell(0));
    list.view()->clear();
    MVThemeMgr::init()->load(true);
    list.fill();
    QTRY_COMPARE(list.cellCount(), 3);
    for (int row = 0; row < 3; ++row)
        QCOMPARE(list.cell(row)->getItem(), BrowserWorld::theme(row + 1));
}

/// The old cells still exist while the new ones are created, but their items do not.
void tst_mvThemelistview_rows::clearsASelectionBeforeACatalogueIsReloaded()
{
    ListWindow list(UIItem_Themes);
    list.fill();
    list.cell(1)->doApplyTheme();
    QVERIFY(isMarked(list.cell(1)));
    list.view()->clear();
    MVThemeMgr::init()->load(true);
    list.view()->initData(QUuid(), false);
    QTRY_COMPARE(list.cellCount(), 3);
    for (int row = 0; row < 3; ++row)
        QVERIFY(!isMarked(list.cell(row)));
}

void tst_mvThemelistview_rows::modelsStayConsistent()
{
    using Tester = QAbstractItemModelTester;
    BrowserWorld::setParam("url_slidershow", QStringLiteral("https://example.com/"));
    ListWindow list(UIItem_Themes);
    const Tester rows(list.rows(), Tester::FailureReportingMode::QtTest);
    const Tester shown(list.proxy(), Tester::FailureReportingMode::QtTest);
    for (int round = 0; round < 2; ++round) {
        list.fill();
        list.view()->reapplyFilter(2, QString());
        list.view()->reapplyFilter(999, QStringLiteral("zzz"));
        list.view()->reapplyFilter(999, QString());
        list.view()->addItem(*BrowserWorld::theme(1));
        list.view()->clear();
    }
}

void tst_mvThemelistview_rows::twoListsAtATime()
{
    ListWindow themes(UIItem_Themes);
    ListWindow filters(UIItem_Filters);
    themes.fill();
    filters.fill();
    const QSignalSpy themeApplied(themes.view(), &mvThemelistview::sigThemeItemClicked);
    const QSignalSpy filterApplied(filters.view(), &mvThemelistview::sigThemeItemClicked);
    themes.click(frameOf(themes.cell(0)));
    filters.click(frameOf(filters.cell(0)));
    QVERIFY(isMarked(themes.cell(0)));
    QVERIFY(isMarked(filters.cell(0)));
    themes.click(frameOf(themes.cell(1)));
    QVERIFY(!isMarked(themes.cell(0)));
    QVERIFY(isMarked(filters.cell(0)));
    themes.view()->onClearSelect();
    QVERIFY(isMarked(filters.cell(0)));
    themes.view()->clear();
    QVERIFY(isMarked(filters.cell(0)));
    QCOMPARE(themeApplied.size(), 2);
    QCOMPARE(filterApplied.size(), 1);
}

MV_WIDGET_TEST_MAIN(tst_mvThemelistview_rows)

} // namespace tst_mvThemelistview_rows

#include "tst_mvThemelistview_rows.moc"
