// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "browser/EUIItemRole.h"
#include "browser/list/BrowserWorld.h"
#include "browser/list/ListWindow.h"
#include "browser/MVThemeItemWdg.h"
#include "catalogue/MVThemeMgr.h"
#include "support/TestMain.h"

#include <QApplication>
#include <QLabel>
#include <QSignalSpy>
#include <QStandardItemModel>

#include <memory>

namespace tst_hiddenDownloads {

/// Tests cells that a filter hides while their items download.
class tst_hiddenDownloads : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void endsInHiding();
    void failsInHiding();
    void comesBackAsItWas();
    void comesBackOutOfView();
    void comesAndGoes();
    void comesBackAfterTheEnd();
    void isNotStartedTwice();
    void isStoppedWithTheList();
    void isStoppedAloneByItsWidget();
    void goesWithTheView();
    void selectionMadeMeanwhileIsKept();

private:
    void startDownload();
    void showOne();
    void showOther();

    std::unique_ptr<BrowserWorld> m_world;
    std::unique_ptr<ListWindow> m_list;
    QPointer<MVThemeItemWdg> m_cell;
};

namespace {

const QString files = QStringLiteral("/config/Themes/1.zip");
constexpr int allThemes = 999;

bool needsFiles(SCfg_Item* item)
{
    QVector<SFileInfo*> missing;
    MVThemeMgr::init()->getNeedDownLoadFiles(item, missing);
    return !missing.isEmpty();
}

} // namespace

void tst_hiddenDownloads::init()
{
    m_list.reset();
    m_world = std::make_unique<BrowserWorld>();
    m_world->addTheme(1, QStringLiteral("One"), BrowserWorld::OnServer);
    m_world->addTheme(2, QStringLiteral("Other"));
    m_world->load();
    m_world->hold(files);
    m_list = std::make_unique<ListWindow>(UIItem_Themes);
    m_list->fill();
    m_cell = m_list->cell(0);
}

void tst_hiddenDownloads::startDownload()
{
    m_list->click(frameOf(m_cell));
    QTRY_COMPARE(m_world->requests(files), 1);
}

void tst_hiddenDownloads::showOne()
{
    m_list->view()->reapplyFilter(allThemes, QString());
}

void tst_hiddenDownloads::showOther()
{
    m_list->view()->reapplyFilter(allThemes, QStringLiteral("other"));
}

void tst_hiddenDownloads::endsInHiding()
{
    const HostTrace trace;
    const QSignalSpy applied(m_list->view(), &mvThemelistview::sigThemeItemClicked);
    startDownload();
    showOther();
    QVERIFY(m_cell);
    QVERIFY(!m_cell->isVisible());
    QVERIFY(m_cell->isDownloading());
    QCOMPARE(trace.entries(), QStringList());
    m_world->release();
    QTRY_VERIFY(!m_cell);
    QCOMPARE(trace.entries(), QStringList{QStringLiteral("downloaded One")});
    QCOMPARE(applied.size(), 0);
    QVERIFY(!needsFiles(BrowserWorld::theme(1)));
    QVERIFY(!m_list->rows()->index(0, 0).data(UIItemRole_Widget).value<QObject*>());
}

void tst_hiddenDownloads::failsInHiding()
{
    const HostTrace trace;
    startDownload();
    showOther();
    m_cell->cancelDownload();
    m_world->release();
    QTRY_VERIFY(!m_cell);
    QCOMPARE(trace.entries(), QStringList{QStringLiteral("downloaded One")});
    showOne();
    QVERIFY(!isMarked(m_list->cell(0)));
    QCOMPARE(pageOf(m_list->cell(0)), QStringLiteral("pageShow"));
}

void tst_hiddenDownloads::comesBackAsItWas()
{
    const HostTrace trace;
    const QSignalSpy applied(m_list->view(), &mvThemelistview::sigThemeItemClicked);
    startDownload();
    showOther();
    QCoreApplication::processEvents();
    showOne();
    QCOMPARE(m_list->cell(0), m_cell.data());
    QVERIFY(m_cell->isVisible());
    QCOMPARE(pageOf(m_cell), QStringLiteral("pageDownload"));
    QCOMPARE(m_list->cellCount(), 2);
    m_list->click(labelOf(m_cell, "lblName")); // the same download is still running
    m_world->release();
    QTRY_COMPARE(trace.entries(),
                 (QStringList{QStringLiteral("clicked One"), QStringLiteral("downloaded One")}));
    QCOMPARE(applied.size(), 1);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(m_cell);
    QVERIFY(isMarked(m_cell));
    QCOMPARE(pageOf(m_cell), QStringLiteral("pageShow"));
    QCOMPARE(m_world->requests(files), 1);
}

/// The row may be anywhere when the filter shows it again; its item is applied all the same.
void tst_hiddenDownloads::comesBackOutOfView()
{
    m_list.reset();
    for (int number = 3; number <= 80; ++number)
        m_world->addTheme(number, QStringLiteral("Other %1").arg(number));
    m_world->load();
    m_list = std::make_unique<ListWindow>(UIItem_Themes);
    m_list->fill();
    m_cell = m_list->cell(0);
    const QSignalSpy applied(m_list->view(), &mvThemelistview::sigThemeItemClicked);
    startDownload();
    showOther();
    m_list->view()->scrollToBottom();
    m_list->view()->setCurrentIndex(m_list->view()->shownRow(CatalogueFiles::guid(80)));
    showOne();
    m_list->view()->scrollToBottom();
    QCoreApplication::processEvents();
    QVERIFY(m_cell && !m_cell->isDeletedAfterDownload());
    m_world->release();
    QTRY_COMPARE(applied.size(), 1);
    QCOMPARE(m_list->view()->appliedItem(), CatalogueFiles::guid(1));
}

void tst_hiddenDownloads::comesAndGoes()
{
    const HostTrace trace;
    startDownload();
    for (int i = 0; i < 3; ++i) {
        showOther();
        QVERIFY(!m_cell->isVisible());
        showOne();
        QVERIFY(m_cell->isVisible());
    }
    showOther();
    m_world->release();
    QTRY_VERIFY(!m_cell);
    QCOMPARE(trace.entries(), QStringList{QStringLiteral("downloaded One")});
    QCOMPARE(m_world->requests(files), 1);
}

void tst_hiddenDownloads::comesBackAfterTheEnd()
{
    const HostTrace trace;
    startDownload();
    showOther();
    m_world->release();
    QTRY_VERIFY(!m_cell);
    showOne();
    MVThemeItemWdg* const fresh = m_list->cell(0);
    QVERIFY(fresh);
    QVERIFY(!isMarked(fresh));
    m_list->click(frameOf(fresh));
    QCOMPARE(trace.entries(),
             (QStringList{QStringLiteral("downloaded One"), QStringLiteral("clicked One")}));
    QCOMPARE(m_world->requests(files), 1);
}

/// The download has ended, but its widget still exists.
void tst_hiddenDownloads::isNotStartedTwice()
{
    HostTrace trace;
    startDownload();
    showOther();
    bool shown = false;
    MVThemeItemWdg::setCbItemDownloaded([&](SCfg_Item*) {
        showOne();
        shown = true;
    });
    m_world->release();
    QTRY_VERIFY(shown);
    QTRY_VERIFY(!m_cell);
    MVThemeItemWdg* const fresh = m_list->cell(0);
    QVERIFY(fresh);
    QVERIFY(fresh->isVisible());
    QCOMPARE(m_list->cellCount(), 2);
    m_list->click(frameOf(fresh));
    QCOMPARE(trace.entries(), QStringList{QStringLiteral("clicked One")});
}

void tst_hiddenDownloads::isStoppedWithTheList()
{
    const HostTrace trace;
    m_world->stall(files);
    startDownload();
    showOther();
    m_list->view()->clear();
    MVThemeMgr::init()->load(true); // no thread reads the catalogue any more
    QTRY_VERIFY(!m_cell);
    QTRY_COMPARE(m_list->cellCount(), 0);
    QCOMPARE(trace.entries(), QStringList());
}

void tst_hiddenDownloads::isStoppedAloneByItsWidget()
{
    const HostTrace trace;
    m_world->stall(files);
    startDownload();
    showOther();
    m_cell->tryStopDownloadThread();
    QTRY_VERIFY(!m_cell);
    QCOMPARE(trace.entries(), QStringList());
    showOne();
    QVERIFY(m_list->cell(0));
    QCOMPARE(m_list->cell(0)->getItem(), BrowserWorld::theme(1));
}

void tst_hiddenDownloads::goesWithTheView()
{
    const HostTrace trace;
    m_world->stall(files);
    startDownload();
    showOther();
    m_list->close();
    QVERIFY(!m_cell);
    QCOMPARE(trace.entries(), QStringList());
}

void tst_hiddenDownloads::selectionMadeMeanwhileIsKept()
{
    startDownload();
    showOther();
    m_list->click(frameOf(m_list->cell(1)));
    m_world->release();
    QTRY_VERIFY(!m_cell);
    QVERIFY(isMarked(m_list->cell(1)));
    showOne();
    QVERIFY(isMarked(m_list->cell(1)));
    QVERIFY(!isMarked(m_list->cell(0)));
}

MV_WIDGET_TEST_MAIN(tst_hiddenDownloads)

} // namespace tst_hiddenDownloads

#include "tst_hiddenDownloads.moc"
