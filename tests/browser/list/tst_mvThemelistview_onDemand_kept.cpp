// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "browser/list/BrowserWorld.h"
#include "browser/list/ListWindow.h"
#include "browser/MVThemeItemSubwdgt_Preview.h"
#include "browser/MVThemeItemWdg.h"
#include "browser/MVThemeSortFilterProxyModel.h"
#include "catalogue/MVThemeMgr.h"
#include "host/HostSettings.h"
#include "support/HttpAnswer.h"
#include "support/TestMain.h"

#include <QLabel>
#include <QScrollBar>
#include <QSignalSpy>
#include <QUuid>

#include <functional>
#include <memory>

namespace tst_mvThemelistview_onDemand_kept {

using Action = std::function<void(MVThemeItemWdg*)>;
} // namespace tst_mvThemelistview_onDemand_kept

Q_DECLARE_METATYPE(tst_mvThemelistview_onDemand_kept::Action)

namespace tst_mvThemelistview_onDemand_kept {

/// Tests cells on demand whose rows are out of view: which ones stay, what survives the others, and
/// operations that need a cell.
class tst_mvThemelistview_onDemand_kept : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void busyCellStays_data();
    void busyCellStays();
    void cellGoesWhenItsDownloadHasEnded();
    void cellGoesWhenAnotherIsApplied();
    void downloadOutOfViewEndsBehindAFilter();
    void errorSurvives();
    void errorIsForgottenWithTheRows();
    void farItemIsSelected_data();
    void farItemIsSelected();
    void farItemIsMarked();
    void farItemIsApplied();
    void keysActOnAFarRow();
    void currentRowKeepsItsCellInView();
    void firstItemIsRefreshedFromAfar();
    void outlineStaysAboveALaterCell();
    void reloadKeepsFarState();

private:
    mvThemelistview* view() const { return m_list->view(); }
    void scrollAway() const { view()->scrollToBottom(); }
    QPointer<MVThemeItemWdg> existingCell(int number) const;
    bool isPoolDone() const;

    std::unique_ptr<BrowserWorld> m_world;
    std::unique_ptr<ListWindow> m_list;
};

namespace {

constexpr int themes = 200;
constexpr int missing = 1; // the theme that is not on disk
constexpr int far = 150;
const QString files = QStringLiteral("/config/Themes/1.zip");

QString nameOf(int number)
{
    return QStringLiteral("Theme %1").arg(number, 3, 10, QLatin1Char('0'));
}

QString guidOf(int number)
{
    return BrowserWorld::theme(number)->m_qsGUID;
}

} // namespace

void tst_mvThemelistview_onDemand_kept::init()
{
    m_list.reset();
    m_world = std::make_unique<BrowserWorld>();
    hostSettings().cellsOnDemand = true;
    for (int number = 1; number <= themes; ++number)
        m_world->addTheme(number, nameOf(number),
                          number == missing ? BrowserWorld::OnServer : BrowserWorld::OnDisk);
    m_world->load();
    m_list = std::make_unique<ListWindow>(UIItem_Themes);
    m_list->fill();
}

/// Returns the cell of a theme without creating it.
QPointer<MVThemeItemWdg> tst_mvThemelistview_onDemand_kept::existingCell(int number) const
{
    return qobject_cast<MVThemeItemWdg*>(view()->indexWidget(view()->shownRow(guidOf(number))));
}

/// Returns whether all rows around the page have their cells, so that only events change anything.
bool tst_mvThemelistview_onDemand_kept::isPoolDone() const
{
    const QRect page = view()->viewport()->rect();
    const QRect area = page.adjusted(0, -page.height(), 0, page.height());
    for (int row = 0; row < view()->model()->rowCount(); ++row) {
        const QModelIndex index = view()->model()->index(row, 0);
        if (view()->visualRect(index).intersects(area) && !view()->indexWidget(index))
            return false;
    }
    return true;
}

void tst_mvThemelistview_onDemand_kept::busyCellStays_data()
{
    QTest::addColumn<int>("theme");
    QTest::addColumn<Action>("makeBusy");
    QTest::newRow("downloading") << missing << Action([](auto* cell) { cell->activate(); });
    QTest::newRow("applied") << 2 << Action([](auto* cell) { cell->activate(); });
    QTest::newRow("playing") << 2 << Action([](auto* cell) { cell->togglePreview(); });
    QTest::newRow("current") << 2 << Action([this](auto*) {
        view()->setCurrentIndex(view()->shownRow(guidOf(2)));
    });
    QTest::newRow("focused") << 2 << Action([this](auto* cell) {
        cell->setFocusPolicy(Qt::StrongFocus);
        cell->setFocus();
        view()->selectionModel()->clear();
    });
}

void tst_mvThemelistview_onDemand_kept::busyCellStays()
{
    QFETCH(int, theme);
    QFETCH(Action, makeBusy);
    m_world->stall(files);
    const QPointer<MVThemeItemWdg> busy = existingCell(theme);
    const QPointer<MVThemeItemWdg> idle = existingCell(3);
    QVERIFY(busy && idle);
    makeBusy(busy);
    scrollAway();
    QTRY_VERIFY(!idle);
    QVERIFY(busy);
    QCOMPARE(existingCell(theme), busy);
    QVERIFY(!view()->viewport()->rect().intersects(busy->geometry()));
    view()->scrollToTop();
    QCOMPARE(busy->geometry(), view()->visualRect(view()->shownRow(guidOf(theme))));
}

void tst_mvThemelistview_onDemand_kept::cellGoesWhenItsDownloadHasEnded()
{
    const HostTrace trace;
    m_world->hold(files);
    const QPointer<MVThemeItemWdg> cell = existingCell(missing);
    hostSettings().lastChoiceWins = true;
    cell->activate();
    existingCell(2)->activate(); // so that the download does not apply its item
    scrollAway();
    QTRY_COMPARE(m_world->requests(files), 1);
    QTRY_VERIFY(isPoolDone());
    QVERIFY(cell);
    m_world->release();
    QTRY_VERIFY(!cell);
    QCOMPARE(trace.count(QStringLiteral("downloaded ") + nameOf(missing)), 1);
}

void tst_mvThemelistview_onDemand_kept::cellGoesWhenAnotherIsApplied()
{
    const QPointer<MVThemeItemWdg> cell = existingCell(2);
    cell->activate();
    scrollAway();
    QTRY_VERIFY(isPoolDone());
    existingCell(themes)->activate();
    QTRY_VERIFY(!cell);
    QCOMPARE(view()->appliedItem(), guidOf(themes));
}

void tst_mvThemelistview_onDemand_kept::downloadOutOfViewEndsBehindAFilter()
{
    const HostTrace trace;
    m_world->hold(files);
    const QPointer<MVThemeItemWdg> cell = existingCell(missing);
    cell->activate();
    scrollAway();
    view()->reapplyFilter(MVThemeSortFilterProxyModel::allThemes, nameOf(far));
    QTRY_COMPARE(m_world->requests(files), 1);
    QVERIFY(cell && !cell->isVisible());
    m_world->release();
    QTRY_VERIFY(!cell);
    QCOMPARE(trace.entries(), QStringList(QStringLiteral("downloaded ") + nameOf(missing)));
    QCOMPARE(m_list->cellCount(), 1);
}

void tst_mvThemelistview_onDemand_kept::errorSurvives()
{
    m_world->route(files, [](HttpExchange& exchange) {
        exchange.answer(HttpAnswer(404).body("no such file"));
    });
    const QPointer<MVThemeItemWdg> cell = existingCell(missing);
    cell->activate();
    QTRY_VERIFY(!errorOf(cell).isEmpty());
    const QString error = errorOf(cell);
    m_list->moveAway();
    for (int times = 0; times < 2; ++times) {
        const QPointer<MVThemeItemWdg> before = existingCell(missing);
        scrollAway();
        QTRY_VERIFY(!before);
        view()->scrollToTop();
        QVERIFY(existingCell(missing));
        QCOMPARE(errorOf(existingCell(missing)), error);
    }
}

void tst_mvThemelistview_onDemand_kept::errorIsForgottenWithTheRows()
{
    existingCell(2)->showError(eDownLoadError_Internet);
    scrollAway();
    view()->clear();
    m_list->fill();
    view()->scrollToTop();
    QVERIFY(existingCell(2));
    QCOMPARE(existingCell(2)->shownError(), eDownLoadError_None);
}

void tst_mvThemelistview_onDemand_kept::farItemIsSelected_data()
{
    QTest::addColumn<bool>("byGuid");
    QTest::newRow("by GUID") << true;
    QTest::newRow("by item") << false;
}

void tst_mvThemelistview_onDemand_kept::farItemIsSelected()
{
    QFETCH(bool, byGuid);
    const QSignalSpy clicked(view(), &mvThemelistview::sigThemeItemClicked);
    QVERIFY(!existingCell(far));
    if (byGuid)
        view()->selFilterItemByGUID(QUuid(guidOf(far)));
    else
        view()->selThemeItem(BrowserWorld::theme(far));
    QCOMPARE(clicked.size(), 1);
    QCOMPARE(clicked.at(0).at(0).value<SCfg_Item*>(), BrowserWorld::theme(far));
    QVERIFY(isMarked(existingCell(far)));
    view()->scrollTo(view()->shownRow(guidOf(far)));
    QVERIFY(existingCell(far)->isVisible());
    QVERIFY(view()->viewport()->rect().contains(existingCell(far)->geometry()));
    view()->reapplyFilter(MVThemeSortFilterProxyModel::allThemes, nameOf(2));
    view()->selThemeItem(BrowserWorld::theme(far)); // hidden by the filter
    QCOMPARE(clicked.size(), 1);
}

void tst_mvThemelistview_onDemand_kept::farItemIsMarked()
{
    view()->setAppliedItem(guidOf(far));
    QCOMPARE(view()->appliedItem(), guidOf(far));
    view()->setAppliedItem(guidOf(2));
    view()->scrollTo(view()->shownRow(guidOf(far)));
    QVERIFY(!isMarked(existingCell(far)));
    QVERIFY(isMarked(existingCell(2)));
}

void tst_mvThemelistview_onDemand_kept::farItemIsApplied()
{
    const HostTrace trace;
    view()->cell(guidOf(far))->activate();
    QCOMPARE(trace.entries(), QStringList(QStringLiteral("clicked ") + nameOf(far)));
    const QPointer<MVThemeItemWdg> unused = view()->cell(guidOf(far + 1));
    QVERIFY(unused);
    QTRY_VERIFY(!unused);
    QVERIFY(existingCell(far));
}

void tst_mvThemelistview_onDemand_kept::keysActOnAFarRow()
{
    view()->setCurrentIndex(view()->shownRow(guidOf(1)));
    QTest::keyClick(view(), Qt::Key_End);
    QCOMPARE(view()->currentIndex(), view()->shownRow(guidOf(themes)));
    QVERIFY(existingCell(themes));
    QTest::keyClick(view(), Qt::Key_Return);
    QCOMPARE(view()->appliedItem(), guidOf(themes));
    view()->setAutoScroll(false);
    view()->setCurrentIndex(view()->shownRow(guidOf(2)));
    QTest::keyClick(view(), Qt::Key_Space);
    QVERIFY(existingCell(2)->isPlaying());
    QTest::keyClick(view(), Qt::Key_Return);
    QCOMPARE(view()->appliedItem(), guidOf(2));
    delete existingCell(2);
    QTest::keyClick(view(), Qt::Key_Space);
    QVERIFY(existingCell(2)->isPlaying());
}

/// Qt opens an editor of its own for a current row without one, and closes it with the next.
void tst_mvThemelistview_onDemand_kept::currentRowKeepsItsCellInView()
{
    delete existingCell(2);
    view()->setCurrentIndex(view()->shownRow(guidOf(2)));
    const QPointer<MVThemeItemWdg> cell = existingCell(2);
    QVERIFY(cell);
    view()->setCurrentIndex(view()->shownRow(guidOf(3)));
    QCOMPARE(existingCell(2), cell);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(cell);
}

void tst_mvThemelistview_onDemand_kept::firstItemIsRefreshedFromAfar()
{
    QPointer<MVThemeItemWdg> first = existingCell(1);
    scrollAway();
    QTRY_VERIFY(!first);
    view()->resetItemData();
    first = existingCell(1);
    QVERIFY(first);
    view()->adjustItem();
    QTRY_VERIFY(!first);
}

void tst_mvThemelistview_onDemand_kept::outlineStaysAboveALaterCell()
{
    m_list->window().activateWindow();
    view()->clearFocus();
    view()->setFocus(Qt::TabFocusReason);
    QTRY_VERIFY(view()->hasFocus());
    view()->setCurrentIndex(view()->shownRow(guidOf(2)));
    delete existingCell(2);
    view()->updateItemState();
    QVERIFY(existingCell(2));
    const auto* const mark = view()->viewport()->findChild<QWidget*>(QStringLiteral("focusMark"));
    QVERIFY(mark && mark->isVisible());
    QCOMPARE(mark->geometry(), existingCell(2)->geometry());
    QCOMPARE(view()->viewport()->children().last(), mark);
}

void tst_mvThemelistview_onDemand_kept::reloadKeepsFarState()
{
    m_world->stall(files);
    existingCell(missing)->activate();
    view()->cell(guidOf(far))->activate();
    view()->scrollTo(view()->shownRow(guidOf(100)), QAbstractItemView::PositionAtTop);
    const int position = view()->verticalScrollBar()->value();
    QTRY_COMPARE(m_world->requests(files), 1);
    view()->release();
    MVThemeMgr::init()->load(true);
    view()->refill();
    QCOMPARE(view()->verticalScrollBar()->value(), position);
    QVERIFY(existingCell(100));
    QVERIFY(existingCell(missing)->isDownloading());
    QVERIFY(isMarked(existingCell(far)));
    QTRY_COMPARE(m_world->requests(files), 2);
    QTRY_VERIFY(m_list->cellCount() < themes / 4);
}

MV_WIDGET_TEST_MAIN(tst_mvThemelistview_onDemand_kept)

} // namespace tst_mvThemelistview_onDemand_kept

#include "tst_mvThemelistview_onDemand_kept.moc"
