// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "browser/list/BrowserWorld.h"
#include "browser/list/ListWindow.h"
#include "browser/MVThemeItemWdg.h"
#include "browser/MVThemeSortFilterProxyModel.h"
#include "catalogue/MVThemeMgr.h"
#include "support/ProcessorTime.h"
#include "support/TestMain.h"
#include "support/ThisProcess.h"

#include <QApplication>
#include <QDir>
#include <QUuid>

#include <memory>

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
constexpr bool sanitized = true; // freed memory stays in quarantine, and everything is slow
#else
constexpr bool sanitized = false;
#endif

/// Tests that a list that is filled and filtered for days neither grows nor slows down.
class tst_listGrowth : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void refillingDoesNotGrow();
    void filteringDoesNotGrow();
    void hoveringKeepsNoFilesOpen();
    void laterPagesCostNoMoreThanTheFirst();
    void newCellsLeaveNoRequests_data();
    void newCellsLeaveNoRequests();

private:
    void fillWorld(int themes);

    std::unique_ptr<BrowserWorld> m_world;
};

namespace {

constexpr int fewThemes = 12;
constexpr int page = sanitized ? 100 : 500;
constexpr int rounds = sanitized ? 3 : 30;
constexpr qint64 tolerated = 3 * 1024 * 1024;
constexpr double timesSlower = 3;
constexpr double leastSeconds = 0.2; // shorter times are too noisy to compare

/// Counts the requests of a cell's parts that Qt delivers later.
class RequestCounter : public QObject
{
public:
    void watch(QWidget& cell)
    {
        const QList<QWidget*> parts = QList<QWidget*>{&cell} + cell.findChildren<QWidget*>();
        for (QWidget* const part : parts)
            part->installEventFilter(this);
    }
    int count() const { return m_count; }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        const QEvent::Type type = event->type();
        if (type == QEvent::PolishRequest || type == QEvent::LayoutRequest
            || type == QEvent::UpdateLater)
            ++m_count;
        return QObject::eventFilter(watched, event);
    }

private:
    int m_count = 0;
};

/// Performs the deletions deferred to the end of the current event.
void endEvent()
{
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

} // namespace

void tst_listGrowth::init()
{
    m_world = std::make_unique<BrowserWorld>();
}

void tst_listGrowth::fillWorld(int themes)
{
    for (int number = 1; number <= themes; ++number)
        m_world->addTheme(number, QStringLiteral("Theme %1").arg(number));
    m_world->load();
}

void tst_listGrowth::refillingDoesNotGrow()
{
    fillWorld(fewThemes);
    ListWindow list(UIItem_Themes);
    const auto refill = [&] {
        list.fill();
        list.view()->selThemeItem(BrowserWorld::theme(2));
        list.view()->clear();
        MVThemeMgr::init()->load(true);
        endEvent();
    };
    for (int i = 0; i < rounds; ++i)
        refill();
    QCOMPARE(list.cellCount(), 0);
    const int objects = list.window().findChildren<QObject*>().size();
    const qint64 before = ThisProcess::residentBytes();
    for (int i = 0; i < rounds; ++i)
        refill();
    QCOMPARE(list.window().findChildren<QObject*>().size(), objects);
    const qint64 grown = ThisProcess::residentBytes() - before;
    QVERIFY2(sanitized || grown < tolerated, qPrintable(QString::number(grown)));
}

void tst_listGrowth::filteringDoesNotGrow()
{
    fillWorld(fewThemes);
    ListWindow list(UIItem_Themes);
    list.fill();
    list.view()->selThemeItem(BrowserWorld::theme(2));
    const auto filter = [&] {
        list.view()->reapplyFilter(999, QStringLiteral("5"));
        endEvent();
        list.view()->reapplyFilter(999, QString());
        endEvent();
    };
    for (int i = 0; i < rounds; ++i)
        filter();
    const int objects = list.window().findChildren<QObject*>().size();
    const qint64 before = ThisProcess::residentBytes();
    for (int i = 0; i < rounds; ++i)
        filter();
    QCOMPARE(list.window().findChildren<QObject*>().size(), objects);
    QCOMPARE(list.cellCount(), fewThemes);
    const qint64 grown = ThisProcess::residentBytes() - before;
    QVERIFY2(sanitized || grown < tolerated, qPrintable(QString::number(grown)));
}

void tst_listGrowth::hoveringKeepsNoFilesOpen()
{
    fillWorld(fewThemes);
    ListWindow list(UIItem_Themes, {900, 500});
    list.fill();
    const int before = ThisProcess::openFiles();
    for (int row = 0; row < fewThemes; ++row)
        list.moveTo(frameOf(list.cell(row)));
    list.moveAway();
    QCOMPARE(ThisProcess::openFiles(), before);
}

void tst_listGrowth::laterPagesCostNoMoreThanTheFirst()
{
    fillWorld(page);
    ListWindow list(UIItem_Themes);
    list.view()->setCellsOnDemand(false);
    const ProcessorTime firstTime;
    list.fill();
    const double first = firstTime.seconds();
    list.view()->clear();
    endEvent();
    const ProcessorTime secondTime;
    list.fill();
    const double second = secondTime.seconds();
    QCOMPARE(list.cellCount(), page);
    QVERIFY2(second <= qMax(first * timesSlower, leastSeconds),
             qPrintable(QStringLiteral("%1 s, then %2 s").arg(first).arg(second)));
}

/// Qt compares each request of a part with all that wait already, so what the parts of thousands of
/// new cells ask for must not wait.
void tst_listGrowth::newCellsLeaveNoRequests_data()
{
    QTest::addColumn<bool>("isQueued");
    QTest::newRow("called directly") << false;
    // Meanwhile Qt keeps even removed events in its queue.
    QTest::newRow("called by a queued slot") << true;
}

void tst_listGrowth::newCellsLeaveNoRequests()
{
    QFETCH(bool, isQueued);
    fillWorld(fewThemes);
    ListWindow list(UIItem_Themes);
    list.view()->setCellsOnDemand(false);
    RequestCounter counter;
    const auto fill = [&] {
        list.view()->initData(QUuid(), false);
        for (int row = 0; row < fewThemes; ++row)
            counter.watch(*list.cell(row));
    };
    if (isQueued)
        QMetaObject::invokeMethod(list.view(), fill, Qt::QueuedConnection);
    else
        fill();
    QCoreApplication::sendPostedEvents();
    QCOMPARE(list.cellCount(), fewThemes);
    QCOMPARE(counter.count(), 0);
}

MV_WIDGET_TEST_MAIN(tst_listGrowth)

#include "tst_listGrowth.moc"
