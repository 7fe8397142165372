// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "browser/list/BrowserWorld.h"
#include "browser/list/ListWindow.h"
#include "browser/MVThemeItemSubwdgt_Preview.h"
#include "browser/MVThemeItemWdg.h"
#include "catalogue/MVThemeMgr.h"
#include "host/HostSettings.h"
#include "support/HttpAnswer.h"
#include "support/TestMain.h"

#include <QApplication>
#include <QLabel>
#include <QSignalSpy>
#include <QToolButton>

#include <functional>
#include <memory>

/// Tests clicks on items that are not on disk.
class tst_MVThemeItemWdg_download : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void downloadsAndApplies_data();
    void downloadsAndApplies();
    void showsProgressMeanwhile();
    void downloadButtonDownloads();
    void clicksDuringADownload();
    void startsNoSecondDownload();
    void failure_data();
    void failure();
    void clickAgainRetries();
    void cancelledDownload();
    void twoItemsAtATime();
    void hoverMeanwhile();
    void stoppedCellIgnoresTheMouse();
    void stoppingWithoutADownload();
    void clearingStopsDownloads();
    void itemIsDownloadedByAnotherList();
    void damagedConfig_data();
    void damagedConfig();

private:
    MVThemeItemWdg* cell(const char* name) const { return m_list->cell(QString::fromLatin1(name)); }

    std::unique_ptr<BrowserWorld> m_world;
    std::unique_ptr<ListWindow> m_list;
};

namespace {

const QString configOf1 = QStringLiteral("/config/Themes/1.xml");
const QString filesOf1 = QStringLiteral("/config/Themes/1.zip");
const QString configOf2 = QStringLiteral("/config/Themes/2.xml");

QStringList appliedAndDownloaded(const char* name)
{
    return {QStringLiteral("clicked ") + QString::fromLatin1(name),
            QStringLiteral("downloaded ") + QString::fromLatin1(name)};
}

} // namespace

void tst_MVThemeItemWdg_download::init()
{
    m_list.reset();
    m_world = std::make_unique<BrowserWorld>();
    m_world->addTheme(1, QStringLiteral("One"), BrowserWorld::OnServer);
    m_world->addTheme(2, QStringLiteral("Two"), BrowserWorld::OnServer);
    m_world->addThemeWithConfig(3, QStringLiteral("Outside"),
                                QStringLiteral("/../../../../../../outside.xml"));
    m_world->addTheme(4, QStringLiteral("Ready"));
    m_world->addFilter(11, QStringLiteral("Warm"), BrowserWorld::OnServer);
    m_world->addBackground(21, QStringLiteral("Wood"), BrowserWorld::OnServer);
    m_world->load();
    m_list = std::make_unique<ListWindow>(UIItem_Themes);
    m_list->fill();
}

void tst_MVThemeItemWdg_download::downloadsAndApplies_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("target");
    QTest::newRow("theme") << 0 << QStringLiteral("One") << filesOf1;
    QTest::newRow("filter") << 1 << QStringLiteral("Warm")
                            << QStringLiteral("/config/VideoFilters/11.zip");
    QTest::newRow("large filter") << 2 << QStringLiteral("Warm")
                                  << QStringLiteral("/config/VideoFilters/11.zip");
    QTest::newRow("background") << 3 << QStringLiteral("Wood")
                                << QStringLiteral("/config/BgMaterial/21.zip");
}

void tst_MVThemeItemWdg_download::downloadsAndApplies()
{
    QFETCH(int, type);
    QFETCH(QString, name);
    QFETCH(QString, target);
    const HostTrace trace;
    ListWindow list(static_cast<EUIItemType>(type));
    list.fill();
    MVThemeItemWdg* const cell = list.cell(name);
    QVERIFY(cell);
    const QSignalSpy applied(list.view(), &mvThemelistview::sigThemeItemClicked);
    list.click(frameOf(cell));
    QCOMPARE(applied.size(), 0);
    QTRY_COMPARE(trace.entries(), appliedAndDownloaded(name.toLatin1().constData()));
    QCOMPARE(applied.size(), 1);
    QVERIFY(isMarked(cell));
    QCOMPARE(pageOf(cell), QStringLiteral("pageShow"));
    QCOMPARE(errorOf(cell), QString());
    QVERIFY(!cell->isDownloading());
    QCOMPARE(m_world->requests(target), 1);

    const int requests = m_world->requests();
    list.click(frameOf(cell));
    QCOMPARE(trace.count(QStringLiteral("clicked ") + name), 2);
    QCOMPARE(m_world->requests(), requests);
}

void tst_MVThemeItemWdg_download::showsProgressMeanwhile()
{
    m_world->hold(filesOf1);
    const HostTrace trace;
    m_list->click(frameOf(cell("One")));
    QVERIFY(cell("One")->isDownloading());
    QCOMPARE(pageOf(cell("One")), QStringLiteral("pageDownload"));
    QTRY_COMPARE(m_world->requests(filesOf1), 1);
    QCOMPARE(trace.entries(), QStringList());
    QVERIFY(!isMarked(cell("One")));
    m_world->release();
    QTRY_COMPARE(trace.entries(), appliedAndDownloaded("One"));
    QCOMPARE(pageOf(cell("One")), QStringLiteral("pageShow"));
}

void tst_MVThemeItemWdg_download::downloadButtonDownloads()
{
    HostTrace trace;
    MVThemeItemSubwdgt_Preview::setCbBtnDownload(
        [&](SCfg_Item* item) { trace.note(QStringLiteral("download %1").arg(item->m_qsName)); });
    m_list->moveTo(frameOf(cell("One")));
    const QToolButton* const button = buttonOf(cell("One"), "btnDownload");
    QVERIFY(button->isVisible());
    m_list->click(button);
    QTRY_COMPARE(trace.entries(),
                 QStringList{QStringLiteral("download One")} + appliedAndDownloaded("One"));
    QCOMPARE(m_world->requests(configOf1), 1);
    QCOMPARE(m_world->requests(filesOf1), 1);
}

void tst_MVThemeItemWdg_download::clicksDuringADownload()
{
    m_world->hold(configOf1);
    const HostTrace trace;
    m_list->click(frameOf(cell("One")));
    for (int i = 0; i < 2; ++i)
        m_list->click(labelOf(cell("One"), "lblName")); // a click on the ring would cancel
    QTRY_COMPARE(m_world->requests(configOf1), 1);
    m_list->click(frameOf(cell("One")), Qt::RightButton);
    cell("One")->doApplyTheme();
    QCOMPARE(pageOf(cell("One")), QStringLiteral("pageDownload"));
    m_world->release();
    QTRY_COMPARE(trace.entries(), appliedAndDownloaded("One"));
    QCOMPARE(m_world->requests(configOf1), 1);
    QCOMPARE(m_world->requests(filesOf1), 1);
}

void tst_MVThemeItemWdg_download::startsNoSecondDownload()
{
    m_world->hold(configOf1);
    const HostTrace trace;
    m_list->click(frameOf(cell("One")));
    cell("One")->onDownLoad(BrowserWorld::theme(1));
    m_world->release();
    QTRY_COMPARE(trace.entries(), appliedAndDownloaded("One"));
    QCOMPARE(m_world->requests(configOf1), 1);
}

void tst_MVThemeItemWdg_download::failure_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("target");
    QTest::addColumn<bool>("reset");
    QTest::addColumn<QString>("error");
    QTest::newRow("network") << QStringLiteral("One") << configOf1 << true
                             << QStringLiteral("Internet error!");
    QTest::newRow("path") << QStringLiteral("Outside") << QString() << false
                          << QStringLiteral("Path error!");
    QTest::newRow("a file") << QStringLiteral("One") << filesOf1 << false
                            << QStringLiteral("Element error!");
    QTest::newRow("a file by the network")
        << QStringLiteral("One") << filesOf1 << true << QStringLiteral("Element error!");
    QTest::newRow("unknown") << QStringLiteral("One") << configOf1 << false
                             << QStringLiteral("Unknown error!");
}

void tst_MVThemeItemWdg_download::failure()
{
    QFETCH(QString, name);
    QFETCH(QString, target);
    QFETCH(bool, reset);
    QFETCH(QString, error);
    m_world->route(target, [reset](HttpExchange& exchange) {
        if (reset)
            exchange.reset();
        else
            exchange.answer(HttpAnswer(404).body("not here"));
    });
    const HostTrace trace;
    const QSignalSpy applied(m_list->view(), &mvThemelistview::sigThemeItemClicked);
    MVThemeItemWdg* const cell = m_list->cell(name);
    m_list->click(frameOf(cell));
    QTRY_COMPARE(trace.entries(), QStringList{QStringLiteral("downloaded ") + name});
    QCOMPARE(errorOf(cell), error);
    QCOMPARE(pageOf(cell), QStringLiteral("pageShow"));
    QCOMPARE(applied.size(), 0);
    QVERIFY(!isMarked(cell));
    QVERIFY(!cell->isDownloading());
    QVERIFY(cell->getItem());

    m_list->click(frameOf(cell)); // the download is offered again
    const bool isRunning = trace.count(QStringLiteral("downloaded ") + name) == 1;
    QCOMPARE(errorOf(cell), isRunning ? QString() : error); // one without a request ends at once
    QTRY_COMPARE(trace.count(QStringLiteral("downloaded ") + name), 2);
    QCOMPARE(errorOf(cell), error);
}

void tst_MVThemeItemWdg_download::clickAgainRetries()
{
    m_world->route(filesOf1,
                   [](HttpExchange& exchange) { exchange.answer(HttpAnswer(503).body("later")); });
    const HostTrace trace;
    m_list->click(frameOf(cell("One")));
    QTRY_COMPARE(errorOf(cell("One")), QStringLiteral("Element error!"));
    m_world->route(filesOf1, nullptr);
    m_list->click(frameOf(cell("One")));
    QTRY_COMPARE(trace.entries(),
                 QStringList{QStringLiteral("downloaded One")} + appliedAndDownloaded("One"));
    QCOMPARE(errorOf(cell("One")), QString());
    QVERIFY(isMarked(cell("One")));
    QCOMPARE(m_world->requests(configOf1), 1);
    QCOMPARE(m_world->requests(filesOf1), 2);
}

void tst_MVThemeItemWdg_download::cancelledDownload()
{
    m_world->stall(configOf1);
    const HostTrace trace;
    m_list->click(frameOf(cell("One")));
    QTRY_COMPARE(m_world->requests(configOf1), 1);
    cell("One")->cancelDownload();
    QTRY_COMPARE(trace.entries(), QStringList{QStringLiteral("downloaded One")});
    QVERIFY(!isMarked(cell("One")));
    QCOMPARE(errorOf(cell("One")), QString());
    m_world->route(configOf1, nullptr);
    m_list->click(frameOf(cell("One")));
    QTRY_COMPARE(trace.count(QStringLiteral("clicked One")), 1);
}

/// The item whose files arrive last is applied last.
void tst_MVThemeItemWdg_download::twoItemsAtATime()
{
    m_world->hold(configOf1);
    const HostTrace trace;
    m_list->click(frameOf(cell("One")));
    m_list->click(frameOf(cell("Two")));
    QTRY_COMPARE(trace.entries(), appliedAndDownloaded("Two"));
    QVERIFY(isMarked(cell("Two")));
    m_list->click(frameOf(cell("Ready")));
    QVERIFY(isMarked(cell("Ready")));
    m_world->release();
    QTRY_COMPARE(trace.count(QStringLiteral("downloaded One")), 1);
    QVERIFY(isMarked(cell("One")));
    QVERIFY(!isMarked(cell("Two")));
    QVERIFY(!isMarked(cell("Ready")));
}

void tst_MVThemeItemWdg_download::hoverMeanwhile()
{
    m_world->hold(filesOf1);
    const HostTrace trace;
    m_list->click(frameOf(cell("One")));
    for (int i = 0; i < 20; ++i) {
        m_list->moveAway();
        m_list->moveTo(frameOf(cell("One")));
    }
    QCOMPARE(pageOf(cell("One")), QStringLiteral("pageDownload"));
    m_world->release();
    QTRY_COMPARE(trace.entries(), appliedAndDownloaded("One"));
}

void tst_MVThemeItemWdg_download::stoppedCellIgnoresTheMouse()
{
    m_world->stall(configOf1);
    const HostTrace trace;
    const QSignalSpy applied(m_list->view(), &mvThemelistview::sigThemeItemClicked);
    MVThemeItemWdg* const one = cell("One");
    m_list->click(frameOf(one));
    QTRY_COMPARE(m_world->requests(configOf1), 1);
    one->tryStopDownloadThread();
    QVERIFY(!one->isDownloading());
    QVERIFY(!one->getItem());
    m_list->click(frameOf(one));
    m_list->moveAway();
    m_list->moveTo(frameOf(one));
    one->doApplyTheme();
    one->tryStopDownloadThread();
    QTRY_COMPARE(m_list->cellCount(), 4); // posted events have been handled
    QCOMPARE(applied.size(), 0);
    QCOMPARE(trace.entries(), QStringList());
    QCOMPARE(m_world->requests(configOf1), 1);
}

void tst_MVThemeItemWdg_download::stoppingWithoutADownload()
{
    const HostTrace trace;
    cell("Ready")->tryStopDownloadThread();
    cell("Ready")->cancelDownload();
    QCOMPARE(cell("Ready")->getItem(), BrowserWorld::theme(4));
    m_list->click(frameOf(cell("Ready")));
    QCOMPARE(trace.entries(), QStringList{QStringLiteral("clicked Ready")});
    cell("One")->tryStopDownloadThread();
    m_list->click(frameOf(cell("One")));
    QTRY_COMPARE(trace.count(QStringLiteral("clicked One")), 1);
}

void tst_MVThemeItemWdg_download::clearingStopsDownloads()
{
    m_world->stall(configOf1);
    m_world->stall(configOf2);
    const HostTrace trace;
    m_list->click(frameOf(cell("One")));
    m_list->click(frameOf(cell("Two")));
    QTRY_COMPARE(m_world->requests(configOf1) + m_world->requests(configOf2), 2);
    m_list->view()->clear();
    MVThemeMgr::init()->load(true); // no thread reads the catalogue any more
    QTRY_COMPARE(m_list->cellCount(), 0);
    QCOMPARE(trace.entries(), QStringList());

    m_world->route(configOf1, nullptr);
    m_list->fill();
    m_list->click(frameOf(cell("One")));
    QTRY_COMPARE(trace.entries(), appliedAndDownloaded("One"));
}

void tst_MVThemeItemWdg_download::itemIsDownloadedByAnotherList()
{
    m_world->hold(filesOf1);
    ListWindow other(UIItem_Themes);
    other.fill();
    const HostTrace trace;
    m_list->click(frameOf(cell("One")));
    QTRY_COMPARE(m_world->requests(filesOf1), 1);
    other.click(frameOf(other.cell(QStringLiteral("One"))));
    m_world->release();
    QTRY_COMPARE(trace.count(QStringLiteral("downloaded One")), 2);
    QCOMPARE(trace.count(QStringLiteral("clicked One")), 2);
    QVERIFY(isMarked(cell("One")));
    QVERIFY(isMarked(other.cell(QStringLiteral("One"))));
    QCOMPARE(m_world->requests(configOf1), 1);
    QCOMPARE(m_world->requests(filesOf1), 1);
}

void tst_MVThemeItemWdg_download::damagedConfig_data()
{
    QTest::addColumn<bool>("isChecked");
    QTest::newRow("content is checked") << true;
    QTest::newRow("content is not checked") << false;
}

/// A click repairs the item where content is checked; otherwise the item is used as it is.
void tst_MVThemeItemWdg_download::damagedConfig()
{
    QFETCH(bool, isChecked);
    BrowserWorld::setParam("hasMV", QStringLiteral("1"));
    hostSettings().checkContent = isChecked;
    const QString file =
        m_world->root() + QStringLiteral("/Themes/config/PQD/Download/Themes/4.xml");
    CatalogueFiles::write(file, "<html><br>");
    const HostTrace trace;
    ListWindow list(UIItem_Themes);
    list.fill();
    list.click(frameOf(list.cell(QStringLiteral("Ready"))));
    QTRY_COMPARE(trace.count(QStringLiteral("clicked Ready")), 1);
    QCOMPARE(trace.count(QStringLiteral("downloaded Ready")), int(isChecked));
    QCOMPARE(m_world->requests(), int(isChecked));
    QCOMPARE(CatalogueFiles::read(file) == "<html><br>", !isChecked);
}

MV_WIDGET_TEST_MAIN(tst_MVThemeItemWdg_download)

#include "tst_MVThemeItemWdg_download.moc"
