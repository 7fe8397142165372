// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "browser/list/BrowserWorld.h"
#include "browser/list/ListWindow.h"
#include "browser/MVThemeItemWdg.h"
#include "browser/mvThemelistview.h"
#include "browser/MVThemeSortFilterProxyModel.h"
#include "catalogue/MVThemeMgr.h"
#include "host/HostSettings.h"
#include "support/TestMain.h"

#include <QScrollBar>
#include <QSignalSpy>
#include <QStandardItemModel>

#include <memory>

namespace tst_mvThemelistview_reload {

/// Tests that a list's state survives a reload of the catalogue.
class tst_mvThemelistview_reload : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void releasedListIsEmpty();
    void filterIsKept();
    void placeIsKept();
    void currentCellIsKept();
    void appliedItemIsKept();
    void appliedItemIsKeptBehindAFilter();
    void downloadGoesOn();
    void downloadGoesOnBehindAFilter();
    void onlyTheLastChoiceApplies_data();
    void onlyTheLastChoiceApplies();
    void itemsThatAreGoneAreLeftOut();
    void refillWithoutRelease();
    void releaseWithoutAType();
    void markIsSetSilently();
    void markIsTakenOff();
    void cellsByItem();

private:
    void reload();
    mvThemelistview* view() const { return m_list->view(); }

    const HostSettings m_settings = hostSettings();
    std::unique_ptr<BrowserWorld> m_world;
    std::unique_ptr<ListWindow> m_list;
};

namespace {

constexpr int themes = 30;
const QString filesOfFirst = QStringLiteral("/config/Themes/1.zip");
const QString filesOfSecond = QStringLiteral("/config/Themes/2.zip");

QString nameOf(int theme)
{
    return QStringLiteral("Theme %1").arg(theme, 2, 10, QLatin1Char('0'));
}

QString guidOf(int theme)
{
    return BrowserWorld::theme(theme)->m_qsGUID;
}

} // namespace

void tst_mvThemelistview_reload::cleanup()
{
    m_list.reset(); // its downloads read the settings
    hostSettings() = m_settings;
}

/// Puts the files of the first two items on the server.
void tst_mvThemelistview_reload::init()
{
    m_world = std::make_unique<BrowserWorld>();
    for (int theme = 1; theme <= themes; ++theme) {
        m_world->addTheme(theme, nameOf(theme),
                          theme <= 2 ? BrowserWorld::OnServer : BrowserWorld::OnDisk);
    }
    m_world->load();
    m_list = std::make_unique<ListWindow>(UIItem_Themes);
    m_list->fill();
}

void tst_mvThemelistview_reload::reload()
{
    view()->release();
    MVThemeMgr::init()->load(true);
    view()->refill();
}

void tst_mvThemelistview_reload::releasedListIsEmpty()
{
    view()->release();
    QCOMPARE(m_list->rows()->rowCount(), 0);
    QVERIFY(view()->cells().isEmpty());
}

void tst_mvThemelistview_reload::filterIsKept()
{
    view()->reapplyFilter(MVThemeSortFilterProxyModel::allThemes, QStringLiteral("e 1"));
    const QStringList shown = m_list->shownNames();
    QCOMPARE(shown.size(), 10);
    reload();
    QCOMPARE(m_list->shownNames(), shown);
    view()->reapplyFilter(MVThemeSortFilterProxyModel::favouriteThemes, QString());
    reload();
    QCOMPARE(m_list->shownNames(), QStringList());
}

void tst_mvThemelistview_reload::placeIsKept()
{
    QScrollBar* const bar = view()->verticalScrollBar();
    bar->setValue(bar->maximum() / 2);
    const int place = bar->value();
    QVERIFY(place > 0);
    reload();
    QCOMPARE(bar->value(), place);
}

void tst_mvThemelistview_reload::currentCellIsKept()
{
    view()->setCurrentIndex(view()->shownRow(guidOf(5)));
    view()->verticalScrollBar()->setValue(view()->verticalScrollBar()->maximum());
    const int place = view()->verticalScrollBar()->value();
    reload();
    QCOMPARE(view()->currentIndex(), view()->shownRow(guidOf(5)));
    QCOMPARE(view()->verticalScrollBar()->value(), place);
}

void tst_mvThemelistview_reload::appliedItemIsKept()
{
    m_list->cell(nameOf(3))->activate();
    QCOMPARE(view()->appliedItem(), guidOf(3));
    const QSignalSpy clicked(view(), &mvThemelistview::sigThemeItemClicked);
    reload();
    QCOMPARE(view()->appliedItem(), guidOf(3));
    QVERIFY(isMarked(m_list->cell(nameOf(3))));
    QCOMPARE(clicked.size(), 0);
}

void tst_mvThemelistview_reload::appliedItemIsKeptBehindAFilter()
{
    m_list->cell(nameOf(3))->activate();
    view()->reapplyFilter(MVThemeSortFilterProxyModel::allThemes, nameOf(5));
    QCOMPARE(view()->appliedItem(), guidOf(3));
    reload();
    QCOMPARE(view()->appliedItem(), guidOf(3));
    view()->reapplyFilter(MVThemeSortFilterProxyModel::allThemes, QString());
    QVERIFY(isMarked(m_list->cell(nameOf(3))));
}

void tst_mvThemelistview_reload::downloadGoesOn()
{
    m_world->stall(filesOfFirst);
    m_list->click(frameOf(m_list->cell(0)));
    QTRY_COMPARE(m_world->requests(filesOfFirst), 1);
    QVERIFY(view()->isDownloading());
    view()->release();
    QVERIFY(!view()->isDownloading());
    MVThemeMgr::init()->load(true);
    view()->refill();
    QTRY_COMPARE(m_world->requests(filesOfFirst), 2);
    QVERIFY(m_list->cell(0)->isDownloading());
}

void tst_mvThemelistview_reload::downloadGoesOnBehindAFilter()
{
    m_world->stall(filesOfFirst);
    m_list->click(frameOf(m_list->cell(0)));
    QTRY_COMPARE(m_world->requests(filesOfFirst), 1);
    view()->reapplyFilter(MVThemeSortFilterProxyModel::allThemes, nameOf(5));
    reload();
    QCOMPARE(m_list->shownNames(), QStringList{nameOf(5)});
    QTRY_COMPARE(m_world->requests(filesOfFirst), 2);
    QVERIFY(view()->isDownloading());
    view()->cancelDownloads();
    QTRY_VERIFY(!view()->isDownloading());
}

void tst_mvThemelistview_reload::onlyTheLastChoiceApplies_data()
{
    QTest::addColumn<int>("chosenLast");
    QTest::newRow("the first") << 1;
    QTest::newRow("the second") << 2;
}

void tst_mvThemelistview_reload::onlyTheLastChoiceApplies()
{
    QFETCH(int, chosenLast);
    hostSettings().lastChoiceWins = true;
    m_world->hold(filesOfFirst);
    m_world->hold(filesOfSecond);
    m_list->click(frameOf(m_list->cell(nameOf(3 - chosenLast))));
    m_list->click(frameOf(m_list->cell(nameOf(chosenLast))));
    QTRY_COMPARE(m_world->requests(filesOfFirst), 1);
    QTRY_COMPARE(m_world->requests(filesOfSecond), 1);
    view()->cancelDownloads();
    const QSignalSpy clicked(view(), &mvThemelistview::sigThemeItemClicked);
    reload();
    m_world->release();
    QTRY_VERIFY(!view()->isDownloading());
    QCOMPARE(view()->appliedItem(), guidOf(chosenLast));
    QCOMPARE(clicked.size(), 1);
}

void tst_mvThemelistview_reload::itemsThatAreGoneAreLeftOut()
{
    m_list->cell(nameOf(30))->activate();
    view()->setCurrentIndex(view()->shownRow(guidOf(30)));
    view()->release();
    m_world = std::make_unique<BrowserWorld>();
    m_world->addTheme(1, nameOf(1));
    m_world->load();
    view()->refill();
    QCOMPARE(m_list->shownNames(), QStringList{nameOf(1)});
    QVERIFY(!isMarked(m_list->cell(0)));
}

void tst_mvThemelistview_reload::refillWithoutRelease()
{
    view()->refill();
    QCOMPARE(m_list->shownNames().size(), themes);
    reload();
    view()->refill();
    QCOMPARE(m_list->shownNames().size(), themes);
}

void tst_mvThemelistview_reload::releaseWithoutAType()
{
    mvThemelistview untyped;
    untyped.release();
    untyped.refill();
    untyped.setAppliedItem(guidOf(1));
    untyped.cancelDownloads();
    QCOMPARE(untyped.appliedItem(), QString());
    QVERIFY(!untyped.isDownloading());
    QVERIFY(!untyped.shownRow(guidOf(1)).isValid());
}

void tst_mvThemelistview_reload::markIsSetSilently()
{
    const QSignalSpy clicked(view(), &mvThemelistview::sigThemeItemClicked);
    view()->setAppliedItem(guidOf(3));
    view()->setAppliedItem(guidOf(4));
    QVERIFY(!isMarked(m_list->cell(nameOf(3))));
    QVERIFY(isMarked(m_list->cell(nameOf(4))));
    view()->reapplyFilter(MVThemeSortFilterProxyModel::allThemes, nameOf(4));
    view()->setAppliedItem(guidOf(5)); // it has no cell now
    QVERIFY(!isMarked(m_list->cell(nameOf(4))));
    view()->reapplyFilter(MVThemeSortFilterProxyModel::allThemes, QString());
    QVERIFY(isMarked(m_list->cell(nameOf(5))));
    QCOMPARE(view()->appliedItem(), guidOf(5));
    QCOMPARE(clicked.size(), 0);
}

void tst_mvThemelistview_reload::markIsTakenOff()
{
    m_list->cell(nameOf(3))->activate();
    view()->setAppliedItem(QString());
    QCOMPARE(view()->appliedItem(), QString());
    QVERIFY(!isMarked(m_list->cell(nameOf(3))));
}

void tst_mvThemelistview_reload::cellsByItem()
{
    view()->setCellsOnDemand(false);
    QCOMPARE(view()->cells().size(), themes);
    QCOMPARE(view()->cell(guidOf(7)), m_list->cell(nameOf(7)));
    QCOMPARE(view()->cell(QStringLiteral("{unknown}")), nullptr);
    view()->reapplyFilter(MVThemeSortFilterProxyModel::allThemes, nameOf(8));
    QCOMPARE(view()->cells().size(), 1);
    QVERIFY(!view()->shownRow(guidOf(7)).isValid());
    QCOMPARE(view()->shownRow(guidOf(8)).row(), 0);
}

MV_WIDGET_TEST_MAIN(tst_mvThemelistview_reload)

} // namespace tst_mvThemelistview_reload

#include "tst_mvThemelistview_reload.moc"
