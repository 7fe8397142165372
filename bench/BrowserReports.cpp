// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "BrowserReports.h"

#include "browser/MVThemeItemSubwdgt_Preview.h"
#include "browser/MVThemeItemWdg.h"
#include "browser/mvThemelistview.h"
#include "BrowserStage.h"
#include "BrowserWorld.h"
#include "catalogue/MVThemeMgr.h"
#include "host/HostSettings.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QLabel>
#include <QMovie>
#include <QUuid>

#include <cstdio>

#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

/// A resource server that never answers but counts its requests.
class SilentServer
{
public:
    SilentServer()
        : m_listener(::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0))
    {
        sockaddr_in address = {};
        address.sin_family = AF_INET;
        address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        socklen_t length = sizeof address;
        auto* const generic = reinterpret_cast<sockaddr*>(&address);
        if (::bind(m_listener, generic, length) != 0
            || ::getsockname(m_listener, generic, &length) != 0
            || ::listen(m_listener, SOMAXCONN) != 0)
            qFatal("no loopback socket");
        hostSettings().productParams.insert(
            QStringLiteral("url_themeRootDir"),
            QStringLiteral("http://127.0.0.1:%1/").arg(ntohs(address.sin_port)));
    }
    ~SilentServer() { ::close(m_listener); }
    Q_DISABLE_COPY_MOVE(SilentServer)

    /// Returns the number of connections since the last call.
    int take()
    {
        int connections = 0;
        for (int socket; (socket = ::accept(m_listener, nullptr, nullptr)) >= 0; ++connections)
            ::close(socket);
        return connections;
    }

private:
    int m_listener;
};

BrowserReports::BrowserReports(const BrowserWorld& world, const QString& styleSheet)
    : m_server(std::make_unique<SilentServer>())
    , m_styleSheet(styleSheet)
    , m_watch(world.folders())
{
}

BrowserReports::~BrowserReports() = default;

bool BrowserReports::print()
{
    BrowserStage::dress(m_styleSheet);
    m_watch.take();
    const auto list = BrowserStage::openList();
    report("initData", [&list] { list->initData(QUuid(), false); });
    reportFilter(*list);
    reportHover(*list);
    reportRing();
    reportQueuedFilling();
    return m_allKept;
}

void BrowserReports::report(const char* what, const std::function<void()>& action, Reading allowed)
{
    QElapsedTimer clock;
    clock.start();
    action();
    const double called = static_cast<double>(clock.nsecsElapsed()) / 1e6;
    BrowserStage::settle();
    const double settled = static_cast<double>(clock.nsecsElapsed()) / 1e6;
    const BrowserFileWatch::Tally tally = m_watch.take();
    const int asked = m_server->take();
    std::printf("%-40s %9.2f ms, settled after %9.2f ms; files opened: %d, of these again: %d; "
                "the server was asked %d times\n",
                what, called, settled, tally.files, tally.again, asked);
    m_allKept = m_allKept && asked == 0 && (tally.again == 0 || allowed == ReadAgain);
}

void BrowserReports::reportFilter(mvThemelistview& list)
{
    const int festivals = MVThemeMgr::init()->Themetype(QStringLiteral("festivals"));
    const int travel = MVThemeMgr::init()->Themetype(QStringLiteral("travel"));
    const auto show = [&list](int type) {
        return [&list, type] { list.reapplyFilter(type, QString()); };
    };
    report("reapplyFilter, all to festivals", show(festivals));
    report("reapplyFilter, festivals to travel", show(travel));
    report("reapplyFilter, travel back to festivals", show(festivals));
    report("reapplyFilter, festivals again", show(festivals));
    report("reapplyFilter, festivals to all", show(999));
}

void BrowserReports::reportHover(const mvThemelistview& list)
{
    const auto cells = list.findChildren<MVThemeItemWdg*>();
    hover("hover to first frame", *cells.at(0));
    hover("hover over the next cell", *cells.at(1));
    hover("hover over the first again", *cells.at(0), ReadAgain);
}

void BrowserReports::hover(const char* what, QWidget& cell, Reading allowed)
{
    QWidget* const target = cell.findChild<QWidget*>(QStringLiteral("MVThemeItemWdgBg"));
    const QMovie* const movie = cell.findChild<QLabel*>(QStringLiteral("lblGif"))->movie();
    report(
        what,
        [target, movie] {
            bool hasFrame = false;
            const auto connection = QObject::connect(movie, &QMovie::frameChanged, target,
                                                     [seen = &hasFrame] { *seen = true; });
            QEvent enter(QEvent::Enter);
            QCoreApplication::sendEvent(target, &enter);
            while (!hasFrame)
                QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
            QObject::disconnect(connection);
        },
        allowed);
    QEvent leave(QEvent::Leave);
    QCoreApplication::sendEvent(target, &leave);
    BrowserStage::settle();
}

void BrowserReports::reportRing()
{
    // Only the face has an item, so that no download starts.
    MVThemeItemWdg cell(nullptr);
    auto* const face = cell.findChild<MVThemeItemSubwdgt_Preview*>();
    MVThemeMgr* const manager = MVThemeMgr::init();
    face->setItem(manager->findItemByIDFromDisplay(eCfgItem_Theme,
                                                   manager->getThemes_Display().first().m_qsGUID));
    cell.show();
    face->startDownLoad();
    BrowserStage::settle();
    if (!cell.findChild<QWidget*>(QStringLiteral("lblIcon"))->isVisible())
        qFatal("no ring is shown");
    report("100 ring repaints", [face] {
        for (int percent = 1; percent <= 100; ++percent)
            face->onProgress(percent);
    });
}

void BrowserReports::reportQueuedFilling()
{
    // While Qt delivers a posted event it keeps the whole queue, which new events join.
    const auto list = BrowserStage::openList();
    report(
        "initData, called by a queued slot",
        [&list] {
            QMetaObject::invokeMethod(
                list.get(), [&list] { list->initData(QUuid(), false); }, Qt::QueuedConnection);
            QCoreApplication::processEvents();
        },
        ReadAgain);
}
