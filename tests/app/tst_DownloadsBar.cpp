// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "AppLanguage.h"
#include "browser/list/BrowserWorld.h"
#include "browser/list/ListWindow.h"
#include "browser/MVThemeItemWdg.h"
#include "browser/SCellState.h"
#include "DownloadsBar.h"
#include "support/TestMain.h"

#include <QLabel>
#include <QPushButton>

#include <atomic>
#include <chrono>
#include <memory>

/// Tests what the window says of running downloads, on a server that sends little or nothing.
class tst_DownloadsBar : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void littleIsNoSilence();
    void silenceIsTold();
    void oneOfTwoIsSilent();
    void actionCancels();

private:
    void start(const char* name) { m_list->click(frameOf(m_list->cell(QLatin1String(name)))); }
    QString text() const
    {
        return m_bar->findChild<QLabel*>(QStringLiteral("downloadsBarText"))->text();
    }

    std::unique_ptr<BrowserWorld> m_world;
    std::unique_ptr<ListWindow> m_list;
    std::unique_ptr<DownloadsBar> m_bar;
};

namespace {

using Clock = std::chrono::steady_clock;

constexpr std::chrono::milliseconds limit{500};
constexpr std::chrono::milliseconds usually{5000};
const QString slow = QStringLiteral("/config/VideoFilters/1.zip");
const QString silent = QStringLiteral("/config/VideoFilters/2.zip");

/// A server that sends a large file in pieces far below one per cent, for as long as it is told to.
struct Trickle
{
    void answer(HttpExchange& exchange)
    {
        exchange.send("HTTP/1.1 200 OK\r\nContent-Length: 1000000000\r\n\r\n");
        Clock::time_point last = Clock::now();
        while (isFlowing && exchange.isOpen()) {
            exchange.send(QByteArray(100, 'x'));
            exchange.pause(std::chrono::milliseconds(10));
            const Clock::time_point now = Clock::now();
            longestGap = qMax<qint64>(longestGap, (now - last) / std::chrono::milliseconds(1));
            last = now;
        }
        exchange.stall();
    }

    std::atomic<bool> isFlowing{true};
    std::atomic<qint64> longestGap{0}; // ms
};

} // namespace

void tst_DownloadsBar::init()
{
    AppLanguage::install(QStringLiteral("en"));
    ServerSilence::setLimit(limit);
    m_world = std::make_unique<BrowserWorld>();
    m_world->addFilter(1, QStringLiteral("Slow"), BrowserWorld::OnServer);
    m_world->addFilter(2, QStringLiteral("Silent"), BrowserWorld::OnServer);
    m_world->load();
    m_world->stall(silent);
    m_list = std::make_unique<ListWindow>(UIItem_Filters);
    m_list->fill();
    m_bar = std::make_unique<DownloadsBar>(
        [this](const ItemKey& item) { return m_list->view()->stateOf(item.guid); },
        &m_list->window());
}

void tst_DownloadsBar::cleanup()
{
    m_bar.reset();
    m_list.reset();
    m_world.reset();
    ServerSilence::setLimit(usually);
}

void tst_DownloadsBar::littleIsNoSilence()
{
    auto server = std::make_shared<Trickle>();
    m_world->route(slow, [server](HttpExchange& exchange) { server->answer(exchange); });
    start("Slow");
    QTRY_COMPARE(text(), QStringLiteral("Slow: Downloading 1 item"));
    const Clock::time_point begun = Clock::now();
    while (Clock::now() - begun < 3 * limit) {
        QTest::qWait(10);
        // A machine that is busy elsewhere may have been silent itself.
        const bool isWaiting = text().contains(QLatin1String("Waiting"));
        QVERIFY2(!isWaiting || server->longestGap > limit.count() / 2, qPrintable(text()));
    }
    QCOMPARE(m_list->cell(0)->percent(), 10); // of the first phase: no whole per cent has arrived
    server->isFlowing = false;
    QTRY_COMPARE(text(), QStringLiteral("Slow: Waiting for the server…"));
}

void tst_DownloadsBar::silenceIsTold()
{
    start("Silent");
    QTRY_COMPARE(text(), QStringLiteral("Silent: Waiting for the server…"));
    QTRY_VERIFY(m_bar->isVisible());
    m_list->cell(QStringLiteral("Silent"))->cancelDownload();
    QTRY_VERIFY(!m_bar->isVisible());
}

void tst_DownloadsBar::oneOfTwoIsSilent()
{
    auto server = std::make_shared<Trickle>();
    m_world->route(slow, [server](HttpExchange& exchange) { server->answer(exchange); });
    start("Slow");
    start("Silent");
    QTRY_COMPARE(text(), QStringLiteral("Downloading 2 items, 1 of them waiting for the server"));
    server->isFlowing = false;
    QTRY_COMPARE(text(), QStringLiteral("Waiting for the server…"));
}

void tst_DownloadsBar::actionCancels()
{
    connect(m_bar.get(), &DownloadsBar::cancelWanted, m_list->view(),
            &mvThemelistview::cancelDownloads);
    start("Silent");
    QTRY_COMPARE(text(), QStringLiteral("Silent: Waiting for the server…"));
    auto* const action = m_bar->findChild<QPushButton*>(QStringLiteral("downloadsBarAction"));
    QCOMPARE(action->text(), QStringLiteral("Cancel"));
    action->click();
    QTRY_COMPARE(m_bar->count(), 0);
    QVERIFY(!m_bar->isVisible());
}

MV_WIDGET_TEST_MAIN(tst_DownloadsBar)
#include "tst_DownloadsBar.moc"
