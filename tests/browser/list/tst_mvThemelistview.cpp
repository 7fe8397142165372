// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "browser/list/BrowserWorld.h"
#include "browser/list/ListWindow.h"
#include "browser/MVResourceItemDelegate.h"
#include "browser/MVThemeItemWdg.h"
#include "browser/mvThemelistview.h"
#include "browser/MVThemeSortFilterProxyModel.h"
#include "host/widgets/SkinWidget.h"
#include "support/TestMain.h"

#include <QApplication>
#include <QScrollBar>
#include <QStandardItemModel>
#include <QWheelEvent>

#include <memory>

namespace tst_mvThemelistview {

/// Tests the setup, cell size and scrolling of a list.
class tst_mvThemelistview : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void freshViewIsOfNoType();
    void setUp();
    void metricsOfTheSkin_data();
    void metricsOfTheSkin();
    void noMetricsWithoutAType_data();
    void noMetricsWithoutAType();
    void cellSize_data();
    void cellSize();
    void cellsStandSideBySide();
    void wheel_data();
    void wheel();
    void wheelStepLeavesThePaddingOut();
    void wheelAtTheEnds();
    void wheelWithoutAnythingToScroll();

private:
    void useSkin(const QSize& theme, const QRect& themePadding, const QSize& filter,
                 const QRect& filterPadding) const;
    static bool turnWheel(mvThemelistview& view, const QPoint& delta);

    std::unique_ptr<BrowserWorld> m_world;
};

namespace {

constexpr QRect themePadding(1, 2, 3, 4);
constexpr QRect filterPadding(5, 6, 7, 8);
constexpr QSize themeSize(160, 120);
constexpr QSize filterSize(90, 70);
constexpr int manyItems = 40;

QSize cellSizeOf(const ListWindow& list)
{
    return list.delegate()->sizeHint(QStyleOptionViewItem(), QModelIndex());
}

} // namespace

void tst_mvThemelistview::init()
{
    m_world = std::make_unique<BrowserWorld>();
}

void tst_mvThemelistview::useSkin(const QSize& theme, const QRect& ofTheme, const QSize& filter,
                                  const QRect& ofFilter) const
{
    SkinWidget* const skin = SkinWidget::instance();
    skin->setThemeItemSize(theme);
    skin->setThemeItemPadding(ofTheme);
    skin->setFilterItemSize(filter);
    skin->setFilterItemPadding(ofFilter);
}

/// Returns whether the event was accepted.
bool tst_mvThemelistview::turnWheel(mvThemelistview& view, const QPoint& delta)
{
    const QPointF at = view.viewport()->rect().center();
    QWheelEvent event(at, view.viewport()->mapToGlobal(at.toPoint()), QPoint(), delta, Qt::NoButton,
                      Qt::NoModifier, Qt::NoScrollPhase, false);
    event.ignore();
    QApplication::sendEvent(view.viewport(), &event);
    return event.isAccepted();
}

void tst_mvThemelistview::freshViewIsOfNoType()
{
    m_world->addTheme(1, QStringLiteral("Theme"));
    m_world->load();
    mvThemelistview view;
    QVERIFY(!view.model());
    view.initData(QUuid(), false);
    view.addItem(*BrowserWorld::theme(1));
    view.reapplyFilter(1, QStringLiteral("x"));
    view.updateItemState();
    view.resetItemData();
    view.adjustItem();
    view.onClearSelect();
    view.selFilterItemByGUID(QUuid(CatalogueFiles::guid(1)));
    view.selThemeItem(BrowserWorld::theme(1));
    view.clear();
    QVERIFY(!view.model());
}

void tst_mvThemelistview::setUp()
{
    const ListWindow list(UIItem_Themes);
    const mvThemelistview& view = *list.view();
    QVERIFY(list.proxy());
    QVERIFY(list.rows());
    QVERIFY(list.delegate());
    QVERIFY(!list.rows()->parent());
    QCOMPARE(list.proxy()->parent(), list.view());
    QCOMPARE(list.delegate()->parent(), list.view());
    QCOMPARE(view.spacing(), 0);
    QCOMPARE(view.viewMode(), QListView::IconMode);
    QVERIFY(!view.dragEnabled());
    QCOMPARE(static_cast<int>(view.editTriggers()), 31);
    QVERIFY(view.testAttribute(Qt::WA_MouseTracking));
}

void tst_mvThemelistview::metricsOfTheSkin_data()
{
    QTest::addColumn<EUIItemType>("type");
    QTest::addColumn<QSize>("expectedSize");
    QTest::addColumn<QRect>("expectedPadding");
    QTest::newRow("themes") << UIItem_Themes << themeSize << themePadding;
    QTest::newRow("filters") << UIItem_Filters << filterSize << filterPadding;
    QTest::newRow("large filters") << UIItem_FiltersLarge << themeSize << themePadding;
    QTest::newRow("backgrounds") << UIItem_BgMaterial << filterSize << filterPadding;
}

void tst_mvThemelistview::metricsOfTheSkin()
{
    QFETCH(EUIItemType, type);
    QFETCH(QSize, expectedSize);
    QFETCH(QRect, expectedPadding);
    useSkin(themeSize, themePadding, filterSize, filterPadding);
    const ListWindow list(type);
    QSize size;
    QRect padding;
    list.view()->getItemSIze(size, padding);
    QCOMPARE(size, expectedSize);
    QCOMPARE(padding, expectedPadding);
    const QSize added(expectedPadding.y() + expectedPadding.height(),
                      expectedPadding.x() + expectedPadding.width());
    QCOMPARE(cellSizeOf(list), expectedSize + added);
}

void tst_mvThemelistview::noMetricsWithoutAType_data()
{
    QTest::addColumn<EUIItemType>("type");
    QTest::newRow("none") << UIItem_None;
    QTest::newRow("beyond the types") << static_cast<EUIItemType>(5);
    QTest::newRow("negative") << static_cast<EUIItemType>(-1);
}

void tst_mvThemelistview::noMetricsWithoutAType()
{
    QFETCH(EUIItemType, type);
    useSkin(themeSize, themePadding, filterSize, filterPadding);
    const ListWindow list(type);
    QSize size(3, 4);
    QRect padding(5, 6, 7, 8);
    list.view()->getItemSIze(size, padding);
    QCOMPARE(size, QSize(3, 4));
    QCOMPARE(padding, QRect(5, 6, 7, 8));
}

void tst_mvThemelistview::cellSize_data()
{
    QTest::addColumn<QSize>("skinSize");
    QTest::addColumn<QRect>("padding");
    QTest::addColumn<QSize>("expected");
    const QSize fallback(136, 110);
    QTest::newRow("no size") << QSize(-1, -1) << QRect() << fallback;
    QTest::newRow("no size, with padding")
        << QSize(-1, -1) << QRect(5, -1, -1, -1) << fallback + QSize(10, 10);
    QTest::newRow("no width") << QSize(-1, 90) << QRect() << fallback;
    QTest::newRow("no height") << QSize(90, -1) << QRect() << fallback;
    QTest::newRow("zero is a size") << QSize(0, 0) << QRect() << QSize(0, 0);
    QTest::newRow("size") << QSize(90, 70) << QRect() << QSize(90, 70);
    QTest::newRow("one padding") << QSize(90, 70) << QRect(5, -1, -1, -1) << QSize(100, 80);
    QTest::newRow("two paddings") << QSize(90, 70) << QRect(5, 8, -1, -1) << QSize(106, 80);
    QTest::newRow("three paddings") << QSize(90, 70) << QRect(5, 8, 20, -1) << QSize(106, 95);
    QTest::newRow("four paddings") << QSize(90, 70) << QRect(1, 20, 300, 4000) << QSize(4110, 371);
    QTest::newRow("no right") << QSize(90, 70) << QRect(5, -1, 20, 300) << QSize(395, 95);
    QTest::newRow("zeros") << QSize(90, 70) << QRect(5, 0, 0, 0) << QSize(90, 75);
}

void tst_mvThemelistview::cellSize()
{
    QFETCH(QSize, skinSize);
    QFETCH(QRect, padding);
    QFETCH(QSize, expected);
    useSkin(skinSize, padding, {-1, -1}, {});
    const ListWindow themes(UIItem_Themes);
    QCOMPARE(cellSizeOf(themes), expected);
    useSkin({-1, -1}, {}, skinSize, padding);
    const ListWindow backgrounds(UIItem_BgMaterial);
    QCOMPARE(cellSizeOf(backgrounds), expected);
}

void tst_mvThemelistview::cellsStandSideBySide()
{
    useSkin({100, 80}, {4, -1, -1, -1}, {}, {});
    for (int number = 1; number <= 3; ++number)
        m_world->addTheme(number, QStringLiteral("Theme %1").arg(number));
    m_world->load();
    ListWindow list(UIItem_Themes);
    list.fill();
    for (int row = 0; row < 3; ++row)
        QCOMPARE(list.cell(row)->geometry(), QRect(row * 108, 0, 108, 88));
}

void tst_mvThemelistview::wheel_data()
{
    QTest::addColumn<QPoint>("delta");
    QTest::addColumn<int>("cells");
    QTest::newRow("one step down") << QPoint(0, -120) << 1;
    QTest::newRow("less than a step down") << QPoint(0, -15) << 1;
    QTest::newRow("the least down") << QPoint(0, -1) << 1;
    QTest::newRow("many steps down") << QPoint(0, -480) << 1;
    QTest::newRow("one step up") << QPoint(0, 120) << -1;
    QTest::newRow("less than a step up") << QPoint(0, 15) << -1;
    QTest::newRow("the least up") << QPoint(0, 1) << -1;
    QTest::newRow("many steps up") << QPoint(0, 480) << -1;
    QTest::newRow("nothing") << QPoint(0, 0) << 0;
    QTest::newRow("to the left") << QPoint(120, 0) << 0;
    QTest::newRow("to the right") << QPoint(-120, 0) << 0;
    QTest::newRow("mostly down") << QPoint(30, -120) << 1;
    QTest::newRow("mostly to the right") << QPoint(-120, 30) << 0;
}

void tst_mvThemelistview::wheel()
{
    QFETCH(QPoint, delta);
    QFETCH(int, cells);
    for (int number = 1; number <= manyItems; ++number)
        m_world->addFilter(number, QStringLiteral("Filter"));
    m_world->load();
    ListWindow list(UIItem_Filters);
    list.fill();
    QScrollBar* const bar = list.view()->verticalScrollBar();
    QTRY_VERIFY(bar->maximum() > 400);
    bar->setValue(200);
    const int across = list.view()->horizontalScrollBar()->value();
    QVERIFY(turnWheel(*list.view(), delta));
    QCOMPARE(bar->value(), 200 + cells * 110);
    QCOMPARE(list.view()->horizontalScrollBar()->value(), across);
}

void tst_mvThemelistview::wheelStepLeavesThePaddingOut()
{
    useSkin({}, {}, {100, 85}, {10, -1, -1, -1});
    for (int number = 1; number <= manyItems; ++number)
        m_world->addFilter(number, QStringLiteral("Filter"));
    m_world->load();
    ListWindow list(UIItem_Filters);
    list.fill();
    QScrollBar* const bar = list.view()->verticalScrollBar();
    QTRY_VERIFY(bar->maximum() > 400);
    QVERIFY(turnWheel(*list.view(), {0, -120}));
    QCOMPARE(bar->value(), 85);
}

void tst_mvThemelistview::wheelAtTheEnds()
{
    for (int number = 1; number <= manyItems; ++number)
        m_world->addFilter(number, QStringLiteral("Filter"));
    m_world->load();
    ListWindow list(UIItem_Filters);
    list.fill();
    QScrollBar* const bar = list.view()->verticalScrollBar();
    QTRY_VERIFY(bar->maximum() > 400);
    QVERIFY(turnWheel(*list.view(), {0, 120}));
    QCOMPARE(bar->value(), bar->minimum());
    bar->setValue(bar->minimum() + 30);
    QVERIFY(turnWheel(*list.view(), {0, 120}));
    QCOMPARE(bar->value(), bar->minimum());
    bar->setValue(bar->maximum() - 30);
    QVERIFY(turnWheel(*list.view(), {0, -120}));
    QCOMPARE(bar->value(), bar->maximum());
    QVERIFY(turnWheel(*list.view(), {0, -120}));
    QCOMPARE(bar->value(), bar->maximum());
}

void tst_mvThemelistview::wheelWithoutAnythingToScroll()
{
    const ListWindow list(UIItem_Filters);
    QVERIFY(turnWheel(*list.view(), {0, -120}));
    QVERIFY(turnWheel(*list.view(), {0, 120}));
    QVERIFY(turnWheel(*list.view(), {0, 0}));
    QCOMPARE(list.view()->verticalScrollBar()->value(), 0);
}

MV_WIDGET_TEST_MAIN(tst_mvThemelistview)

} // namespace tst_mvThemelistview

#include "tst_mvThemelistview.moc"
