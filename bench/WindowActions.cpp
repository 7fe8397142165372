// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "WindowActions.h"

#include "AppLanguage.h"
#include "AppLook.h"
#include "browser/mvThemelistview.h"
#include "browser/MVThemeSortFilterProxyModel.h"
#include "BrowserWorld.h"
#include "catalogue/MVThemeMgr.h"
#include "download/CatalogueUpdate.h"
#include "FilterBar.h"
#include "host/HostSettings.h"
#include "host/ProductParam.h"
#include "MainWindow.h"
#include "Preferences.h"
#include "ResourceList.h"
#include "ResourceTabs.h"
#include "ViewMenu.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QLineEdit>
#include <QScrollBar>
#include <QTimer>
#include <QToolButton>
#include <QWheelEvent>

#include <cstdlib>
#include <ctime>

#include <malloc.h>

namespace {

constexpr QSize windowSize(1150, 750);
constexpr QSize largeSize(1600, 1000);

/// Returns the processor time of this process since its start.
double processMs()
{
    timespec now = {};
    ::clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) * 1e3 + static_cast<double>(now.tv_nsec) / 1e6;
}

double heapMegabytes()
{
    const struct mallinfo2 info = ::mallinfo2();
    return static_cast<double>(info.uordblks + info.hblkhd) / (1024.0 * 1024.0);
}

/// Has the C library merge the small pieces that load() has freed, which it does with the next
/// large request.
void mergeFreedMemory()
{
    constexpr size_t pieceBytes = 64 * 1024;
    void* volatile piece = std::malloc(pieceBytes);
    std::free(piece);
}

/// Processes what is pending, with the deletions that an event loop performs.
void turnLoop()
{
    QEventLoop loop;
    QTimer::singleShot(0, &loop, &QEventLoop::quit);
    loop.exec();
}

void turnWheel(QWidget& viewport, int steps)
{
    const QPointF centre = viewport.rect().center();
    constexpr int notch = 120;
    const QPoint delta(0, steps < 0 ? -notch : notch);
    for (int step = 0; step < qAbs(steps); ++step) {
        QCoreApplication::postEvent(&viewport,
                                    new QWheelEvent(centre, viewport.mapToGlobal(centre.toPoint()),
                                                    {}, delta, Qt::NoButton, Qt::NoModifier,
                                                    Qt::NoScrollPhase, false));
        turnLoop();
    }
}

} // namespace

WindowActions::WindowActions(const BrowserWorld& world, const QString& home)
    : m_world(world)
    , m_preferences(std::make_unique<Preferences>(home + QStringLiteral("/preferences.json")))
    , m_check(std::make_unique<CatalogueUpdate>())
{
}

WindowActions::~WindowActions() = default;

void WindowActions::run(const Receiver& receiver)
{
    open(receiver);
    filter(receiver);
    look(receiver);
    scroll(receiver);
    receiver("memory MB", heapMegabytes());
    filterByFiles(receiver);
    receiver("memory with files MB", heapMegabytes());
}

void WindowActions::open(const Receiver& receiver)
{
    const double before = processMs();
    m_world.load();
    mergeFreedMemory();
    receiver("load ms", processMs() - before);
    // Otherwise the window asks for a server instead of showing lists.
    hostSettings().productParams.insert(ProductParam::serverRoot,
                                        QStringLiteral("http://localhost/"));
    AppLanguage::install(QStringLiteral("en"));
    AppLook::apply(m_preferences->skin());
    m_window = std::make_unique<MainWindow>(*m_preferences, *m_check);
    m_window->resize(windowSize);
    m_window->show();
    while (!m_window->isActiveWindow() || list().cells().isEmpty())
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    list().viewport()->repaint();
    receiver("start ms", processMs());
    m_watch.settle();
    m_watch.takeLongestMs();
}

void WindowActions::filter(const Receiver& receiver)
{
    ResourceTabs& tabs = *m_window->tabs();
    auto* const search = tabs.findChild<QLineEdit*>(QStringLiteral("search"));
    const auto show = [&tabs](int type) {
        return [&tabs, type] { tabs.filterBar()->setThemeType(type); };
    };
    MVThemeMgr* const catalogue = MVThemeMgr::init();
    measure(receiver, "search-many", [search] { search->setText(QStringLiteral("7")); });
    measure(receiver, "search-few", [search] { search->setText(QStringLiteral("0001")); });
    measure(receiver, "clear-search", [search] { search->clear(); });
    measure(receiver, "type", show(catalogue->Themetype(QStringLiteral("travel"))));
    measure(receiver, "all-types", show(MVThemeSortFilterProxyModel::allThemes));
    bool isFavourite = true;
    for (SCfg_Item& theme : catalogue->getThemes_Display()) {
        theme.m_bCollected = isFavourite;
        isFavourite = !isFavourite;
        const QSignalBlocker quiet(catalogue);
        catalogue->setItemCollected(&theme);
    }
    auto* const favourites = tabs.findChild<QToolButton*>(QStringLiteral("onlyFavourites"));
    measure(receiver, "favourites", [favourites] { favourites->setChecked(true); });
    measure(receiver, "all-again", [favourites] { favourites->setChecked(false); });
}

void WindowActions::look(const Receiver& receiver)
{
    auto* const menu = m_window->findChild<ViewMenu*>();
    measure(receiver, "skin", [menu] { emit menu->skinChosen(QStringLiteral("Elegance")); });
    measure(receiver, "language", [menu] { emit menu->languageChosen(QStringLiteral("de")); });
    measure(receiver, "enlarge", [this] { m_window->resize(largeSize); });
    measure(receiver, "shrink", [this] { m_window->resize(windowSize); });
}

void WindowActions::scroll(const Receiver& receiver)
{
    QScrollBar* const bar = list().verticalScrollBar();
    measure(receiver, "wheel", [this] { turnWheel(*list().viewport(), -20); });
    measure(receiver, "page", [bar] { bar->triggerAction(QScrollBar::SliderPageStepAdd); });
    measure(receiver, "end", [bar] { bar->setValue(bar->maximum()); });
    measure(receiver, "drag", [bar] {
        for (int step = 20; step >= 0; --step) {
            bar->setValue(bar->maximum() / 20 * step);
            turnLoop();
        }
    });
}

void WindowActions::filterByFiles(const Receiver& receiver)
{
    auto* const onDisk = m_window->findChild<QToolButton*>(QStringLiteral("onlyOnDisk"));
    FilterBar* const bar = m_window->tabs()->filterBar();
    const auto sort = [bar](EListOrder order) { return [bar, order] { bar->setOrder(order); }; };
    measure(receiver, "on-disk", [onDisk] { onDisk->setChecked(true); });
    measure(receiver, "on-disk-or-not", [onDisk] { onDisk->setChecked(false); });
    measure(receiver, "by-size", sort(EListOrder::Size));
    measure(receiver, "by-name", sort(EListOrder::Name));
    measure(receiver, "as-published", sort(EListOrder::Published));
}

void WindowActions::measure(const Receiver& receiver, const char* what,
                            const std::function<void()>& action)
{
    m_watch.takeLongestMs();
    action();
    m_watch.settle();
    receiver(what, m_watch.takeLongestMs());
}

mvThemelistview& WindowActions::list() const
{
    return *m_window->tabs()->currentList()->view();
}
