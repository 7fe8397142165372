// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "browser/EUIItemRole.h"
#include "browser/list/BrowserWorld.h"
#include "browser/list/ListWindow.h"
#include "browser/MVThemeItemWdg.h"
#include "support/TestMain.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QLabel>
#include <QMovie>
#include <QSignalSpy>
#include <QStandardItemModel>

#include <functional>
#include <memory>

namespace tst_browserDestroy {

using Action = std::function<void(ListWindow&)>;

/// Tests destroying lists and cells while they work.
class tst_browserDestroy : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void whileDownloading_data();
    void whileDownloading();
    void whileManyDownload_data() { whileDownloading_data(); }
    void whileManyDownload();
    void asSoonAsTheDownloadStarts();
    void whenTheDownloadHasJustEnded();
    void whilePlaying_data();
    void whilePlaying();
    void selectedCell();
    void listsOneByOne();

private:
    QString config(int number) const { return QStringLiteral("/config/Themes/%1.xml").arg(number); }

    std::unique_ptr<BrowserWorld> m_world;
    std::unique_ptr<ListWindow> m_list;
};

namespace {

constexpr int items = 8;
constexpr int longestJoinMs = 5000; // cancelling takes a second; a stall would take 30

} // namespace

void tst_browserDestroy::init()
{
    m_world = std::make_unique<BrowserWorld>();
    for (int number = 1; number <= items; ++number)
        m_world->addTheme(number, QStringLiteral("Theme %1").arg(number), BrowserWorld::OnServer);
    m_world->load();
    m_list = std::make_unique<ListWindow>(UIItem_Themes);
    m_list->fill();
}

void tst_browserDestroy::cleanup()
{
    m_list.reset();
}

void tst_browserDestroy::whileDownloading_data()
{
    QTest::addColumn<Action>("action");
    const auto row = [](const char* title, const Action& action) {
        QTest::newRow(title) << action;
    };
    row("the cell", [](ListWindow& list) { delete list.cell(0); });
    row("the view", [](ListWindow& list) { delete list.view(); });
    row("the window", [](ListWindow& list) { list.close(); });
    row("the rows", [](ListWindow& list) { list.view()->clear(); });
    row("the view, filtered", [](ListWindow& list) {
        list.view()->reapplyFilter(999, QStringLiteral("nothing"));
        delete list.view();
    });
    row("the rows, filtered", [](ListWindow& list) {
        list.view()->reapplyFilter(999, QStringLiteral("nothing"));
        list.view()->clear();
    });
}

void tst_browserDestroy::whileDownloading()
{
    QFETCH(Action, action);
    const HostTrace trace;
    m_world->stall(config(1));
    m_list->click(frameOf(m_list->cell(0)));
    QTRY_COMPARE(m_world->requests(config(1)), 1);
    QElapsedTimer timer;
    timer.start();
    action(*m_list);
    QVERIFY2(timer.elapsed() < longestJoinMs, qPrintable(QString::number(timer.elapsed())));
    QCoreApplication::processEvents();
    QCOMPARE(trace.entries(), QStringList());
}

void tst_browserDestroy::whileManyDownload()
{
    QFETCH(Action, action);
    for (int number = 1; number <= items; ++number)
        m_world->stall(config(number));
    for (int row = 0; row < items; ++row)
        m_list->cell(row)->doApplyTheme();
    QTRY_COMPARE(m_world->requests(), items);
    QElapsedTimer timer;
    timer.start();
    action(*m_list);
    QVERIFY2(timer.elapsed() < longestJoinMs, qPrintable(QString::number(timer.elapsed())));
}

void tst_browserDestroy::asSoonAsTheDownloadStarts()
{
    for (int row = 0; row < items; ++row) {
        MVThemeItemWdg* const cell = m_list->cell(row);
        cell->doApplyTheme();
        QVERIFY(cell->isDownloading());
        delete cell;
    }
    QCoreApplication::processEvents();
}

/// Its end signal may already be posted.
void tst_browserDestroy::whenTheDownloadHasJustEnded()
{
    const HostTrace trace;
    for (int row = 0; row < items; ++row)
        m_list->cell(row)->doApplyTheme();
    QTRY_VERIFY(!trace.entries().isEmpty());
    m_list->close();
    const QStringList entries = trace.entries();
    QCoreApplication::processEvents();
    QCOMPARE(trace.entries(), entries);
}

void tst_browserDestroy::whilePlaying_data()
{
    QTest::addColumn<Action>("action");
    const auto row = [](const char* title, const Action& action) {
        QTest::newRow(title) << action;
    };
    row("the cell", [](ListWindow& list) { delete list.cell(0); });
    row("the view", [](ListWindow& list) { delete list.view(); });
    row("the window", [](ListWindow& list) { list.close(); });
    row("the rows", [](ListWindow& list) { list.view()->clear(); });
    row("the row, by filtering", [](ListWindow& list) {
        list.view()->reapplyFilter(999, QStringLiteral("2"));
        QTRY_COMPARE(list.cellCount(), 1);
    });
}

void tst_browserDestroy::whilePlaying()
{
    QFETCH(Action, action);
    ListWindow other(UIItem_Themes);
    other.fill();
    m_list->moveTo(frameOf(m_list->cell(0)));
    QVERIFY(playsAnimation(m_list->cell(0)));
    auto* const movie = labelOf(m_list->cell(0), "lblGif")->movie();
    QVERIFY(movie);
    QCOMPARE(movie->state(), QMovie::Running);
    QSignalSpy frames(movie, &QMovie::frameChanged);
    QVERIFY(frames.wait());
    action(*m_list);
    other.moveTo(frameOf(other.cell(1)));
    QVERIFY(playsAnimation(other.cell(1)));
    other.moveTo(frameOf(other.cell(2)));
    QVERIFY(!playsAnimation(other.cell(1)));
    QVERIFY(playsAnimation(other.cell(2)));
}

void tst_browserDestroy::selectedCell()
{
    m_list->view()->selThemeItem(BrowserWorld::theme(1));
    QVERIFY(isMarked(m_list->cell(0)));
    delete m_list->cell(0);
    QVERIFY(!m_list->rows()->index(0, 0).data(UIItemRole_Widget).value<QObject*>());
    m_list->view()->onClearSelect();
    m_list->view()->selThemeItem(BrowserWorld::theme(1)); // it has no cell now
    m_list->view()->selThemeItem(BrowserWorld::theme(2));
    QVERIFY(isMarked(m_list->cell(1)));
    m_list->view()->resetItemData();
    m_list->view()->adjustItem();
}

void tst_browserDestroy::listsOneByOne()
{
    for (int i = 0; i < 5; ++i) {
        ListWindow list(i % 2 == 0 ? UIItem_Themes : UIItem_Filters);
        list.fill();
        if (list.cell(0))
            list.moveTo(frameOf(list.cell(0)));
    }
    m_list->moveTo(frameOf(m_list->cell(0)));
    QVERIFY(playsAnimation(m_list->cell(0)));
}

MV_WIDGET_TEST_MAIN(tst_browserDestroy)

} // namespace tst_browserDestroy

#include "tst_browserDestroy.moc"
