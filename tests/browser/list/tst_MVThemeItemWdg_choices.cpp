// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "browser/list/BrowserWorld.h"
#include "browser/list/ListWindow.h"
#include "browser/MVThemeItemWdg.h"
#include "catalogue/MVThemeMgr.h"
#include "host/HostSettings.h"
#include "support/TestMain.h"

#include <QContextMenuEvent>
#include <QSignalSpy>

#include <memory>

namespace tst_MVThemeItemWdg_choices {

/// Tests the host's choices: which mouse buttons act, and whether a late download still applies.
class tst_MVThemeItemWdg_choices : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();

    void buttonsThatAct_data();
    void buttonsThatAct();
    void rightButtonAsksForAMenu_data();
    void rightButtonAsksForAMenu();
    void menuKeyAsksForTheCurrentCell();
    void noMenuWithoutAnItem_data();
    void noMenuWithoutAnItem();
    void lateDownload_data();
    void lateDownload();
    void lateDownloadOfAnotherKind();
    void anotherListOfTheKindCounts();
    void resumedDownloadDoesNotCountAsAChoice();

private:
    void start();

    const HostSettings m_settings = hostSettings();
    std::unique_ptr<BrowserWorld> m_world;
    std::unique_ptr<ListWindow> m_list;
};

namespace {

const QString filesOfSlow = QStringLiteral("/config/Themes/1.zip");
const QString appliedReady = QStringLiteral("clicked Ready");
const QString appliedSlow = QStringLiteral("clicked Slow");
const QString downloadedSlow = QStringLiteral("downloaded Slow");

} // namespace

void tst_MVThemeItemWdg_choices::cleanup()
{
    m_list.reset(); // its downloads read the settings
    hostSettings() = m_settings;
}

void tst_MVThemeItemWdg_choices::init()
{
    m_world = std::make_unique<BrowserWorld>();
    m_world->addTheme(1, QStringLiteral("Slow"), BrowserWorld::OnServer);
    m_world->addTheme(2, QStringLiteral("Ready"));
    m_world->addFilter(3, QStringLiteral("SlowFilter"), BrowserWorld::OnServer);
    m_world->addFilter(4, QStringLiteral("ReadyFilter"));
    m_world->load();
    m_list = std::make_unique<ListWindow>(UIItem_Themes);
    m_list->fill();
}

/// Starts the slow theme's download, whose last file is held until release().
void tst_MVThemeItemWdg_choices::start()
{
    m_world->hold(filesOfSlow);
    m_list->click(frameOf(m_list->cell(0)));
    QTRY_COMPARE(m_world->requests(filesOfSlow), 1);
}

void tst_MVThemeItemWdg_choices::buttonsThatAct_data()
{
    QTest::addColumn<bool>("leftOnly");
    QTest::addColumn<Qt::MouseButton>("button");
    QTest::addColumn<bool>("acts");
    const auto add = [](const char* name, bool leftOnly, Qt::MouseButton button, bool acts) {
        QTest::newRow(name) << leftOnly << button << acts;
    };
    add("any: left", false, Qt::LeftButton, true);
    add("any: right", false, Qt::RightButton, true);
    add("any: middle", false, Qt::MiddleButton, true);
    add("left only: left", true, Qt::LeftButton, true);
    add("left only: right", true, Qt::RightButton, false);
    add("left only: middle", true, Qt::MiddleButton, false);
    add("left only: back", true, Qt::BackButton, false);
}

void tst_MVThemeItemWdg_choices::buttonsThatAct()
{
    QFETCH(bool, leftOnly);
    QFETCH(Qt::MouseButton, button);
    QFETCH(bool, acts);
    hostSettings().leftButtonOnly = leftOnly;
    const HostTrace trace;
    m_list->click(frameOf(m_list->cell(1)), button);
    QCOMPARE(trace.entries(), acts ? QStringList{appliedReady} : QStringList());
    m_world->stall(filesOfSlow);
    m_list->click(frameOf(m_list->cell(0)), button);
    QCOMPARE(m_list->cell(0)->isDownloading(), acts);
}

void tst_MVThemeItemWdg_choices::rightButtonAsksForAMenu_data()
{
    QTest::addColumn<bool>("leftOnly");
    QTest::newRow("any button acts") << false;
    QTest::newRow("left button only") << true;
}

void tst_MVThemeItemWdg_choices::rightButtonAsksForAMenu()
{
    QFETCH(bool, leftOnly);
    hostSettings().leftButtonOnly = leftOnly;
    const QSignalSpy wanted(m_list->view(), &mvThemelistview::sigContextMenuRequested);
    const HostTrace trace;
    const QWidget* const frame = frameOf(m_list->cell(1));
    m_list->click(frame, Qt::RightButton);
    QCOMPARE(wanted.size(), int(leftOnly));
    if (!leftOnly)
        return;
    QCOMPARE(m_list->view()->currentIndex().row(), 1);
    QCOMPARE(trace.entries(), QStringList()); // not applied
    QCOMPARE(wanted.first().at(0).toString(), CatalogueFiles::guid(2));
    QCOMPARE(wanted.first().at(1).toPoint(), frame->mapToGlobal(frame->rect().center()));
}

void tst_MVThemeItemWdg_choices::menuKeyAsksForTheCurrentCell()
{
    hostSettings().leftButtonOnly = true;
    const QSignalSpy wanted(m_list->view(), &mvThemelistview::sigContextMenuRequested);
    m_list->view()->setCurrentIndex(m_list->view()->model()->index(0, 0));
    QContextMenuEvent event(QContextMenuEvent::Keyboard, QPoint(), QPoint());
    QCoreApplication::sendEvent(m_list->view(), &event);
    QVERIFY(event.isAccepted());
    QCOMPARE(wanted.size(), 1);
    QCOMPARE(wanted.first().at(0).toString(), CatalogueFiles::guid(1));
    const QRect cell(m_list->cell(0)->mapToGlobal(QPoint()), m_list->cell(0)->size());
    QVERIFY(cell.contains(wanted.first().at(1).toPoint()));

    hostSettings().leftButtonOnly = false;
    QCoreApplication::sendEvent(m_list->view(), &event);
    QCOMPARE(wanted.size(), 1);
}

void tst_MVThemeItemWdg_choices::noMenuWithoutAnItem_data()
{
    QTest::addColumn<int>("reason");
    QTest::addColumn<int>("row"); // the current one; -1: none
    QTest::newRow("mouse beside the cells") << int(QContextMenuEvent::Mouse) << 0;
    QTest::newRow("something else") << int(QContextMenuEvent::Other) << 0;
    QTest::newRow("key without a current cell") << int(QContextMenuEvent::Keyboard) << -1;
    QTest::newRow("key on the last cell, for more") << int(QContextMenuEvent::Keyboard) << 2;
}

void tst_MVThemeItemWdg_choices::noMenuWithoutAnItem()
{
    QFETCH(int, reason);
    QFETCH(int, row);
    hostSettings().leftButtonOnly = true;
    BrowserWorld::setParam("url_slidershow", QStringLiteral("https://example.com/"));
    ListWindow list(UIItem_Themes);
    list.fill();
    QCOMPARE(list.view()->model()->rowCount(), 3);
    const QSignalSpy wanted(list.view(), &mvThemelistview::sigContextMenuRequested);
    list.view()->setCurrentIndex(list.view()->model()->index(row, 0));
    QContextMenuEvent event(static_cast<QContextMenuEvent::Reason>(reason), QPoint(), QPoint());
    QCoreApplication::sendEvent(list.view(), &event);
    QCOMPARE(wanted.size(), 0);
    QVERIFY(!event.isAccepted()); // the host's own menu may come
}

void tst_MVThemeItemWdg_choices::lateDownload_data()
{
    QTest::addColumn<bool>("lastWins");
    QTest::addColumn<bool>("chooseOther");
    QTest::addColumn<QStringList>("told");
    QTest::newRow("applies, as nothing else was chosen")
        << true << false << QStringList{appliedSlow, downloadedSlow};
    QTest::newRow("leaves its item ready")
        << true << true << QStringList{appliedReady, downloadedSlow};
    QTest::newRow("applies all the same")
        << false << true << QStringList{appliedReady, appliedSlow, downloadedSlow};
}

void tst_MVThemeItemWdg_choices::lateDownload()
{
    QFETCH(bool, lastWins);
    QFETCH(bool, chooseOther);
    QFETCH(QStringList, told);
    hostSettings().lastChoiceWins = lastWins;
    const HostTrace trace;
    start();
    if (chooseOther)
        m_list->click(frameOf(m_list->cell(1)));
    m_world->release();
    QTRY_COMPARE(trace.entries(), told);
    const bool slowIsApplied = told.contains(appliedSlow);
    QCOMPARE(isMarked(m_list->cell(0)), slowIsApplied);
    QCOMPARE(isMarked(m_list->cell(1)), !slowIsApplied);
    QCOMPARE(errorOf(m_list->cell(0)), QString());
    QVERIFY(!m_list->cell(0)->isDownloading());
    QVector<SFileInfo*> missing;
    MVThemeMgr::init()->getNeedDownLoadFiles(BrowserWorld::theme(1), missing);
    QVERIFY(missing.isEmpty());
}

void tst_MVThemeItemWdg_choices::lateDownloadOfAnotherKind()
{
    hostSettings().lastChoiceWins = true;
    ListWindow filters(UIItem_Filters);
    filters.fill();
    const HostTrace trace;
    start();
    filters.click(frameOf(filters.cell(1)));
    m_world->release();
    QTRY_COMPARE(trace.entries(),
                 (QStringList{QStringLiteral("clicked ReadyFilter"), appliedSlow, downloadedSlow}));
}

/// Two lists can show the same kind.
void tst_MVThemeItemWdg_choices::anotherListOfTheKindCounts()
{
    hostSettings().lastChoiceWins = true;
    m_world->hold(QStringLiteral("/config/VideoFilters/3.zip"));
    ListWindow small(UIItem_Filters);
    small.fill();
    ListWindow large(UIItem_FiltersLarge);
    large.fill();
    const HostTrace trace;
    small.click(frameOf(small.cell(0)));
    QTRY_COMPARE(m_world->requests(QStringLiteral("/config/VideoFilters/3.zip")), 1);
    large.click(frameOf(large.cell(1)));
    m_world->release();
    QTRY_COMPARE(trace.entries(),
                 (QStringList{QStringLiteral("clicked ReadyFilter"),
                              QStringLiteral("downloaded SlowFilter")}));
}

/// A list that resumes its downloads after a reload must not override a later choice.
void tst_MVThemeItemWdg_choices::resumedDownloadDoesNotCountAsAChoice()
{
    hostSettings().lastChoiceWins = true;
    m_world->hold(filesOfSlow);
    const HostTrace trace;
    m_list->click(frameOf(m_list->cell(1)));
    QVERIFY(m_list->cell(1)->isLastChoice());
    m_list->cell(0)->resumeDownload();
    QVERIFY(!m_list->cell(0)->isLastChoice());
    QVERIFY(m_list->cell(1)->isLastChoice());
    m_world->release();
    QTRY_COMPARE(trace.entries(), (QStringList{appliedReady, downloadedSlow}));
}

MV_WIDGET_TEST_MAIN(tst_MVThemeItemWdg_choices)

} // namespace tst_MVThemeItemWdg_choices

#include "tst_MVThemeItemWdg_choices.moc"
