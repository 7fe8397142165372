// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "browser/CellEvents.h"
#include "browser/list/BrowserWorld.h"
#include "browser/list/ListWindow.h"
#include "browser/MVThemeItemSubwdgt_Preview.h"
#include "browser/MVThemeItemWdg.h"
#include "catalogue/ItemFiles.h"
#include "catalogue/MVThemeMgr.h"
#include "support/HttpAnswer.h"
#include "support/HttpExchange.h"
#include "support/TestMain.h"

#include <QDeadlineTimer>
#include <QThread>
#include <QToolButton>

#include <chrono>
#include <functional>
#include <memory>

namespace tst_CellEvents {

using Action = std::function<void(ListWindow&)>;

/// Tests the signals with which cells report their events to a host.
class tst_CellEvents : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void appliedItem();
    void favourite();
    void downloadThatEnds_data();
    void downloadThatEnds();
    void cancelledDownload();
    void downloadWithoutItsCell_data();
    void downloadWithoutItsCell();
    void completeDownloadWithoutItsCell();
    void moreIsWanted();
    void signalsComeAfterTheCellHasFinished();
    void receiverMayReloadTheCatalogue();
    void callbacksStayTheHosts();

private:
    std::unique_ptr<BrowserWorld> m_world;
    std::unique_ptr<ListWindow> m_list;
};

namespace {

const QString files = QStringLiteral("/config/Themes/1.zip");

/// Records the signals in order.
class EventTrace
{
public:
    EventTrace()
    {
        const CellEvents* const events = CellEvents::instance();
        const auto note = [this](const char* what) {
            return [this, what](ECfgItemType kind, const QString& guid) {
                add(QLatin1String(what), kind, guid);
            };
        };
        QObject::connect(events, &CellEvents::itemApplied, &m_context, note("applied"));
        QObject::connect(events, &CellEvents::favouriteToggled, &m_context, note("favourite"));
        QObject::connect(events, &CellEvents::downloadStarted, &m_context, note("started"));
        QObject::connect(
            events, &CellEvents::downloadEnded, &m_context,
            [this](ECfgItemType kind, const QString& guid, const SItemDownloadResult& result) {
                add(QStringLiteral("ended %1").arg(int(result.m_eEnd)), kind, guid);
                m_cause = result.m_failure.m_eCause;
            });
        QObject::connect(events, &CellEvents::moreWanted, &m_context,
                         [this] { m_entries.append(QStringLiteral("more")); });
    }
    Q_DISABLE_COPY_MOVE(EventTrace)

    const QStringList& entries() const { return m_entries; }
    EFailureCause cause() const { return m_cause; }

private:
    void add(const QString& what, ECfgItemType kind, const QString& guid)
    {
        const SCfg_Item* const item = MVThemeMgr::init()->findItemByIDFromDisplay(kind, guid);
        m_entries.append(what + QLatin1Char(' ') + (item ? item->m_qsName : guid));
    }

    QStringList m_entries;
    EFailureCause m_cause = eFailure_None;
    QObject m_context; // destroyed first, which disconnects everything
};

QStringList wholeDownload(int end)
{
    return {QStringLiteral("started One"), QStringLiteral("ended %1 One").arg(end)};
}

} // namespace

void tst_CellEvents::init()
{
    m_list.reset();
    QCoreApplication::processEvents(); // flush what the previous test's cells have posted
    m_world = std::make_unique<BrowserWorld>();
    m_world->addTheme(1, QStringLiteral("One"), BrowserWorld::OnServer);
    m_world->addTheme(2, QStringLiteral("Ready"));
    BrowserWorld::setParam("url_slidershow", QStringLiteral("http://more.invalid/"));
    m_world->load();
    m_list = std::make_unique<ListWindow>(UIItem_Themes);
    m_list->fill();
}

void tst_CellEvents::appliedItem()
{
    const EventTrace trace;
    m_list->click(frameOf(m_list->cell(1)));
    QTRY_COMPARE(trace.entries(), QStringList{QStringLiteral("applied Ready")});
}

void tst_CellEvents::favourite()
{
    const EventTrace trace;
    m_list->cell(1)->toggleFavourite();
    QTRY_COMPARE(trace.entries(), QStringList{QStringLiteral("favourite Ready")});
}

void tst_CellEvents::downloadThatEnds_data()
{
    QTest::addColumn<int>("status");
    QTest::addColumn<int>("cause");
    QTest::addColumn<QStringList>("entries");
    QTest::newRow("complete") << 200 << int(eFailure_None)
                              << (wholeDownload(eItemDownload_Complete)
                                  << QStringLiteral("applied One"));
    QTest::newRow("failed") << 404 << int(eFailure_NotOnServer)
                            << wholeDownload(eItemDownload_Failed);
}

void tst_CellEvents::downloadThatEnds()
{
    QFETCH(int, status);
    QFETCH(QStringList, entries);
    m_world->route(files, [status](HttpExchange& exchange) {
        exchange.answer(HttpAnswer(status).body("PK\x03\x04"));
    });
    const EventTrace trace;
    m_list->click(frameOf(m_list->cell(0)));
    QTRY_COMPARE(trace.entries(), entries);
    QTEST(int(trace.cause()), "cause");
}

void tst_CellEvents::cancelledDownload()
{
    m_world->stall(files);
    const EventTrace trace;
    m_list->click(frameOf(m_list->cell(0)));
    QTRY_COMPARE(m_world->requests(files), 1);
    m_list->cell(0)->cancelDownload();
    QTRY_COMPARE(trace.entries(), wholeDownload(eItemDownload_Cancelled));
}

void tst_CellEvents::downloadWithoutItsCell_data()
{
    QTest::addColumn<Action>("act");
    QTest::addColumn<QStringList>("entries");
    const QStringList once = wholeDownload(eItemDownload_Cancelled);
    const auto row = [](const char* name, const Action& act, const QStringList& entries) {
        QTest::newRow(name) << act << entries;
    };
    row(
        "list cleared", [](ListWindow& list) { list.view()->clear(); }, once);
    row(
        "cell destroyed", [](ListWindow& list) { delete list.cell(0); }, once);
    row(
        "list refilled",
        [](ListWindow& list) {
            list.view()->release();
            list.view()->refill();
        },
        once + QStringList{QStringLiteral("started One")});
}

void tst_CellEvents::downloadWithoutItsCell()
{
    QFETCH(Action, act);
    QFETCH(QStringList, entries);
    m_world->stall(files);
    const EventTrace trace;
    const HostTrace callbacks;
    m_list->click(frameOf(m_list->cell(0)));
    QTRY_COMPARE(m_world->requests(files), 1);
    act(*m_list);
    QTRY_COMPARE(trace.entries(), entries);
    QCoreApplication::processEvents(); // the end signal of a download that nobody waits for
    QCOMPARE(trace.entries(), entries);
    QCOMPARE(callbacks.entries(), QStringList());
}

/// The end of the download is known, but has not been delivered yet.
void tst_CellEvents::completeDownloadWithoutItsCell()
{
    m_world->route(
        files, [](HttpExchange& exchange) { exchange.answer(HttpAnswer(200).body("PK\x03\x04")); });
    const EventTrace trace;
    m_list->click(frameOf(m_list->cell(0)));
    SCfg_Item* const item = m_list->cell(0)->getItem();
    const QDeadlineTimer deadline(std::chrono::seconds(30));
    while (ItemFiles::needsAny(*item) && !deadline.hasExpired())
        QThread::msleep(1); // no events meanwhile
    m_list->view()->clear();
    QTRY_COMPARE(trace.entries(), wholeDownload(eItemDownload_Complete));
}

void tst_CellEvents::moreIsWanted()
{
    const EventTrace trace;
    m_list->cell(2)->activate();
    QTRY_COMPARE(trace.entries(), QStringList{QStringLiteral("more")});
}

void tst_CellEvents::signalsComeAfterTheCellHasFinished()
{
    const EventTrace trace;
    m_list->cell(1)->activate();
    QVERIFY(isMarked(m_list->cell(1)));
    QCOMPARE(trace.entries(), QStringList());
    QTRY_COMPARE(trace.entries().size(), 1);
}

void tst_CellEvents::receiverMayReloadTheCatalogue()
{
    QObject context;
    int reloads = 0;
    connect(CellEvents::instance(), &CellEvents::itemApplied, &context, [&] {
        m_list->view()->release();
        MVThemeMgr::init()->load(true);
        m_list->view()->refill();
        ++reloads;
    });
    m_list->click(frameOf(m_list->cell(1)));
    QTRY_COMPARE(reloads, 1);
    QVERIFY(isMarked(m_list->cell(1)));
}

void tst_CellEvents::callbacksStayTheHosts()
{
    const EventTrace events;
    const HostTrace callbacks;
    m_list->click(frameOf(m_list->cell(1)));
    QCOMPARE(callbacks.entries(), QStringList{QStringLiteral("clicked Ready")});
    QTRY_COMPARE(events.entries(), QStringList{QStringLiteral("applied Ready")});
}

MV_WIDGET_TEST_MAIN(tst_CellEvents)

} // namespace tst_CellEvents

#include "tst_CellEvents.moc"
