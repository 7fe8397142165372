// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "browser/EUIItemRole.h"
#include "browser/list/BrowserWorld.h"
#include "browser/list/ListWindow.h"
#include "browser/MVThemeItemWdg.h"
#include "browser/MVThemeSortFilterProxyModel.h"
#include "host/HostSettings.h"
#include "host/widgets/SkinWidget.h"
#include "support/TestMain.h"

#include <QScrollBar>
#include <QSet>

#include <memory>

/// Tests which rows have a cell when cells are made on demand.
class tst_mvThemelistview_onDemand : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void hostChoosesForNewLists_data();
    void hostChoosesForNewLists();
    void pageAndNeighboursHaveCells_data();
    void pageAndNeighboursHaveCells();
    void scrolledPageIsCompleteAtOnce_data();
    void scrolledPageIsCompleteAtOnce();
    void filteredPageIsCompleteAtOnce();
    void largePageIsCompletedSoon();
    void resizedListFillsItself();
    void cellSizeDecides();
    void moreCellComesAtTheEnd();
    void addedItemGetsItsCellWhenSeen();
    void hiddenListMakesNone();
    void hiddenListCatchesUp();
    void canBeSwitched();
    void destroyedCellIsMadeAgain();
    void clearedWhileCellsAreMade();
    void destroyedWhileCellsAreMade();

private:
    void show(int themes, const QSize& size = {400, 400});
    mvThemelistview* view() const { return m_list->view(); }
    QSet<QString> rowsWithin(int pages) const;
    QSet<QString> rowsWithCells() const;

    std::unique_ptr<BrowserWorld> m_world;
    std::unique_ptr<ListWindow> m_list;
};

namespace {

constexpr int manyThemes = 300;

QString nameOf(int number)
{
    return QStringLiteral("Theme %1").arg(number, 3, 10, QLatin1Char('0'));
}

} // namespace

void tst_mvThemelistview_onDemand::init()
{
    m_list.reset();
    m_world = std::make_unique<BrowserWorld>();
    hostSettings().cellsOnDemand = true;
}

void tst_mvThemelistview_onDemand::show(int themes, const QSize& size)
{
    for (int number = 1; number <= themes; ++number)
        m_world->addTheme(number, nameOf(number));
    m_world->load();
    m_list = std::make_unique<ListWindow>(UIItem_Themes, size);
    m_list->fill();
}

/// Returns the names of the rows in the viewport and this many pages above and below.
QSet<QString> tst_mvThemelistview_onDemand::rowsWithin(int pages) const
{
    const QRect page = view()->viewport()->rect();
    const QRect area = page.adjusted(0, -pages * page.height(), 0, pages * page.height());
    QSet<QString> names;
    for (int row = 0; row < m_list->proxy()->rowCount(); ++row) {
        const QModelIndex index = m_list->proxy()->index(row, 0);
        if (view()->visualRect(index).intersects(area))
            names.insert(index.data(UIItemRole_Name).toString());
    }
    return names;
}

/// Returns the names of the rows whose cells exist, are visible and cover their row.
QSet<QString> tst_mvThemelistview_onDemand::rowsWithCells() const
{
    QSet<QString> names;
    for (int row = 0; row < m_list->proxy()->rowCount(); ++row) {
        const QModelIndex index = m_list->proxy()->index(row, 0);
        const QWidget* const cell = view()->indexWidget(index);
        if (cell && cell->isVisible() && cell->geometry() == view()->visualRect(index))
            names.insert(index.data(UIItemRole_Name).toString());
    }
    return names;
}

void tst_mvThemelistview_onDemand::hostChoosesForNewLists_data()
{
    QTest::addColumn<bool>("onDemand");
    QTest::newRow("a cell for every row") << false;
    QTest::newRow("cells on demand") << true;
}

void tst_mvThemelistview_onDemand::hostChoosesForNewLists()
{
    QFETCH(bool, onDemand);
    QVERIFY(!HostSettings().cellsOnDemand);
    QVERIFY(HostSettings::recommended().cellsOnDemand);
    hostSettings().cellsOnDemand = onDemand;
    show(manyThemes);
    QCOMPARE(view()->hasCellsOnDemand(), onDemand);
    hostSettings().cellsOnDemand = !onDemand;
    view()->updateItemState();
    QCOMPARE(view()->hasCellsOnDemand(), onDemand);
    QCOMPARE(m_list->cellCount() == manyThemes, !onDemand);
}

void tst_mvThemelistview_onDemand::pageAndNeighboursHaveCells_data()
{
    QTest::addColumn<int>("themes");
    QTest::newRow("none") << 0;
    QTest::newRow("one") << 1;
    QTest::newRow("less than a page") << 3;
    QTest::newRow("many") << manyThemes;
}

void tst_mvThemelistview_onDemand::pageAndNeighboursHaveCells()
{
    QFETCH(int, themes);
    show(themes);
    QTRY_COMPARE(rowsWithCells(), rowsWithin(1));
    QTRY_COMPARE(m_list->cellCount(), rowsWithin(1).size());
    QVERIFY(rowsWithin(1).size() <= 24);
}

void tst_mvThemelistview_onDemand::scrolledPageIsCompleteAtOnce_data()
{
    QTest::addColumn<double>("share");
    QTest::newRow("a little") << 0.01;
    QTest::newRow("half") << 0.5;
    QTest::newRow("to the end") << 1.0;
}

void tst_mvThemelistview_onDemand::scrolledPageIsCompleteAtOnce()
{
    QFETCH(double, share);
    show(manyThemes);
    QScrollBar* const bar = view()->verticalScrollBar();
    bar->setValue(qRound(bar->maximum() * share));
    QVERIFY(rowsWithCells().contains(rowsWithin(0)));
    QTRY_COMPARE(rowsWithCells(), rowsWithin(1));
    QTRY_COMPARE(m_list->cellCount(), rowsWithin(1).size());
    bar->setValue(0);
    QVERIFY(rowsWithCells().contains(rowsWithin(0)));
    QTRY_COMPARE(rowsWithCells(), rowsWithin(1));
    QTRY_COMPARE(m_list->cellCount(), rowsWithin(1).size());
}

void tst_mvThemelistview_onDemand::filteredPageIsCompleteAtOnce()
{
    show(manyThemes);
    for (const char* const text : {"9", "29", "299", "nothing", ""}) {
        view()->reapplyFilter(MVThemeSortFilterProxyModel::allThemes, QString::fromLatin1(text));
        QVERIFY(rowsWithCells().contains(rowsWithin(0)));
        QTRY_COMPARE(rowsWithCells(), rowsWithin(1));
        QTRY_COMPARE(m_list->cellCount(), rowsWithin(1).size());
    }
}

void tst_mvThemelistview_onDemand::largePageIsCompletedSoon()
{
    show(manyThemes, {1900, 1200});
    QVERIFY(rowsWithin(0).size() > 64);
    QVERIFY(rowsWithCells().size() < rowsWithin(0).size());
    QTRY_VERIFY(rowsWithCells().contains(rowsWithin(0)));
    QTRY_COMPARE(rowsWithCells(), rowsWithin(1));
}

void tst_mvThemelistview_onDemand::resizedListFillsItself()
{
    show(manyThemes);
    for (const QSize size : {QSize(800, 700), QSize(300, 200), QSize(400, 900)}) {
        view()->resize(size);
        QTRY_COMPARE(rowsWithCells(), rowsWithin(1));
        QTRY_COMPARE(m_list->cellCount(), rowsWithin(1).size());
    }
}

void tst_mvThemelistview_onDemand::cellSizeDecides()
{
    show(manyThemes);
    SkinWidget::instance()->setThemeItemSize({60, 40});
    view()->updateItemSize();
    QTRY_COMPARE(rowsWithCells(), rowsWithin(1));
    QVERIFY(rowsWithin(0).size() > 24);
    SkinWidget::instance()->setThemeItemSize({300, 200});
    view()->updateItemSize();
    QTRY_COMPARE(rowsWithCells(), rowsWithin(1));
    QTRY_COMPARE(m_list->cellCount(), rowsWithin(1).size());
    QVERIFY(rowsWithin(1).size() < 9);
}

void tst_mvThemelistview_onDemand::moreCellComesAtTheEnd()
{
    BrowserWorld::setParam("url_slidershow", QStringLiteral("https://example.com/"));
    show(manyThemes);
    const QModelIndex more = m_list->proxy()->index(manyThemes, 0);
    QVERIFY(!view()->indexWidget(more));
    view()->scrollToBottom();
    QCOMPARE(pageOf(qobject_cast<MVThemeItemWdg*>(view()->indexWidget(more))),
             QStringLiteral("pageMore"));
    view()->scrollToTop();
    QTRY_VERIFY(!view()->indexWidget(more));
}

void tst_mvThemelistview_onDemand::addedItemGetsItsCellWhenSeen()
{
    show(manyThemes);
    view()->addItem(*BrowserWorld::theme(1));
    QCOMPARE(m_list->proxy()->rowCount(), manyThemes + 1);
    const QModelIndex added = m_list->proxy()->index(manyThemes, 0);
    QVERIFY(!view()->indexWidget(added));
    view()->scrollToBottom();
    QVERIFY(view()->indexWidget(added));
}

void tst_mvThemelistview_onDemand::hiddenListMakesNone()
{
    show(0);
    view()->hide();
    for (int number = 1; number <= manyThemes; ++number)
        m_world->addTheme(number, nameOf(number));
    m_world->load();
    m_list->fill();
    QCOMPARE(m_list->cellCount(), 0);
    view()->show();
    QVERIFY(!rowsWithin(0).isEmpty());
    QVERIFY(rowsWithCells().contains(rowsWithin(0)));
}

void tst_mvThemelistview_onDemand::hiddenListCatchesUp()
{
    show(manyThemes);
    view()->hide();
    view()->scrollToBottom();
    QVERIFY(!rowsWithin(0).isEmpty());
    view()->show();
    QVERIFY(rowsWithCells().contains(rowsWithin(0)));
}

void tst_mvThemelistview_onDemand::canBeSwitched()
{
    show(manyThemes);
    view()->setCellsOnDemand(true); // as it is
    view()->setCellsOnDemand(false);
    QCOMPARE(rowsWithCells().size(), manyThemes);
    view()->setCellsOnDemand(true);
    QTRY_COMPARE(m_list->cellCount(), rowsWithin(1).size());
    QCOMPARE(rowsWithCells(), rowsWithin(1));
    view()->setCellsOnDemand(false);
    QCOMPARE(m_list->cellCount(), manyThemes);
    mvThemelistview untyped;
    untyped.setCellsOnDemand(false);
    untyped.setCellsOnDemand(true);
}

void tst_mvThemelistview_onDemand::destroyedCellIsMadeAgain()
{
    show(manyThemes);
    QTRY_COMPARE(rowsWithCells(), rowsWithin(1));
    delete m_list->cell(0);
    QVERIFY(!rowsWithCells().contains(nameOf(1)));
    view()->updateItemState();
    QVERIFY(rowsWithCells().contains(nameOf(1)));
    delete m_list->cell(1);
    view()->scrollToBottom();
    QTRY_COMPARE(m_list->cellCount(), rowsWithin(1).size());
}

void tst_mvThemelistview_onDemand::clearedWhileCellsAreMade()
{
    show(manyThemes);
    view()->verticalScrollBar()->setValue(1000);
    view()->clear();
    QTRY_COMPARE(m_list->cellCount(), 0);
    m_list->fill();
    QTRY_COMPARE(rowsWithCells(), rowsWithin(1));
    QTRY_COMPARE(m_list->cellCount(), rowsWithin(1).size());
}

void tst_mvThemelistview_onDemand::destroyedWhileCellsAreMade()
{
    show(manyThemes);
    const QPointer<MVThemeItemWdg> cell = m_list->cell(0);
    view()->verticalScrollBar()->setValue(1000);
    m_list->close();
    QVERIFY(!cell);
    QCoreApplication::processEvents();
}

MV_WIDGET_TEST_MAIN(tst_mvThemelistview_onDemand)

#include "tst_mvThemelistview_onDemand.moc"
