// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "MainWindow.h"

#include "AboutDialog.h"
#include "AppLanguage.h"
#include "browser/CellEvents.h"
#include "browser/SCellState.h"
#include "catalogue/MVThemeMgr.h"
#include "CheckStatus.h"
#include "DetailsPanel.h"
#include "download/CatalogueUpdate.h"
#include "DownloadsBar.h"
#include "FailureList.h"
#include "FavouriteBar.h"
#include "FilterBar.h"
#include "FoldingPanes.h"
#include "host/HostSettings.h"
#include "host/LogL.h"
#include "host/ProductParam.h"
#include "ItemKey.h"
#include "MessageBar.h"
#include "Preferences.h"
#include "ProjectDialog.h"
#include "ResourceList.h"
#include "ResourceTabs.h"
#include "SettingsControls.h"
#include "StorageControls.h"
#include "UndoAction.h"
#include "ViewMenu.h"

#include <QCloseEvent>
#include <QLabel>
#include <QMenuBar>
#include <QPushButton>
#include <QScreen>
#include <QStackedWidget>
#include <QStatusBar>
#include <QTimer>
#include <QVBoxLayout>

namespace {

constexpr QSize firstWindowSize(1150, 750); // on a usual screen
constexpr int firstListWidth = 772;         // four themes, or six filters, side by side

} // namespace

// Every part is created with its final parent: moving a widget makes the style sheet look at all of
// its parts again.
MainWindow::MainWindow(Preferences& preferences, CatalogueUpdate& check)
    : m_preferences(preferences)
    , m_check(check)
    , m_seen(hostSettings().dataLocation + QStringLiteral("/seen.json"))
    , m_pages(new QStackedWidget(this))
    , m_splitter(new FoldingPanes(new QWidget(m_pages)))
    , m_tabs(new ResourceTabs(new QWidget(m_splitter)))
    , m_details(new DetailsPanel(new QWidget(m_splitter)))
    , m_failure(new FailureList(m_tabs->parentWidget()))
    , m_downloads(new DownloadsBar([this](const ItemKey& item) { return m_tabs->stateOf(item); },
                                   m_tabs->parentWidget()))
    , m_favouriteBar(new FavouriteBar(m_tabs->parentWidget()))
    , m_status(new CheckStatus(check, this))
    , m_storage(new StorageControls(*m_details, m_tabs->parentWidget(), this))
    , m_undo(new UndoAction(m_storage->removals(), this))
    , m_settings(new SettingsControls(preferences, check, m_tabs->parentWidget(), this))
    , m_favouritesChanged(new QTimer(this))
    , m_fileMenu(menuBar()->addMenu(QString()))
    , m_resourcesMenu(menuBar()->addMenu(QString()))
    , m_viewMenu(new ViewMenu(preferences, this))
    , m_helpMenu(new QMenu(this))
    , m_openProject(m_fileMenu->addAction(QString()))
    , m_export(m_fileMenu->addAction(QString()))
    , m_import(m_fileMenu->addAction(QString()))
    , m_quit(m_fileMenu->addAction(QString()))
    , m_find(m_resourcesMenu->addAction(QString()))
    , m_checkNow(m_resourcesMenu->addAction(QString()))
    , m_showDetails(m_resourcesMenu->addAction(QString()))
    , m_unfolded(new QAction(this))
    , m_about(new QAction(this))
    , m_keys(new QAction(this))
{
    arrange();
    createMenus();
    connectParts();
    connectView();
    connectCells();
    connectStorage();
    connectSettings();
    connectLists();
    restore();
    retranslate();
    refreshCheckButton();
}

MainWindow::~MainWindow() = default;

void MainWindow::arrange()
{
    QWidget* const left = m_tabs->parentWidget();
    auto* const lists = new QVBoxLayout(left);
    lists->setContentsMargins(0, 0, 0, 0);
    lists->addWidget(m_tabs, 1);
    lists->addWidget(m_downloads);
    lists->addWidget(m_failure);
    lists->addWidget(m_favouriteBar);
    lists->addWidget(m_settings->bar());
    lists->addWidget(m_storage->bars());
    QWidget* const right = m_details->parentWidget();
    auto* const column = new QVBoxLayout(right);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(m_splitter->backButton(), 0, Qt::AlignLeft);
    column->addWidget(m_details, 1);
    m_splitter->setPanes(left, right);
    m_splitter->setSizes({firstListWidth, firstWindowSize.width() - firstListWidth});
    QWidget* const frame = m_splitter->parentWidget();
    auto* const layout = new QVBoxLayout(frame);
    layout->addWidget(m_splitter);
    m_pages->addWidget(frame);
    setCentralWidget(m_pages);
    setStatusBar(new MessageBar(this));
    statusBar()->addWidget(m_storage->line());
    statusBar()->addPermanentWidget(m_status);
}

void MainWindow::createMenus()
{
    menuBar()->addMenu(m_viewMenu);
    menuBar()->addMenu(m_helpMenu);
    createFileMenu();
    createViewMenu();
    createHelpMenu();
    m_resourcesMenu->menuAction()->setObjectName(QStringLiteral("resources"));
    m_find->setShortcut(QKeySequence(QStringLiteral("Ctrl+F")));
    m_checkNow->setShortcut(QKeySequence(QStringLiteral("F5")));
    m_showDetails->setObjectName(QStringLiteral("showDetails"));
    m_showDetails->setShortcut(QKeySequence(QStringLiteral("Ctrl+I")));
    m_resourcesMenu->addSeparator();
    m_resourcesMenu->addActions({m_storage->updateAll(), m_undo});
    connect(m_find, &QAction::triggered, m_tabs->filterBar(), &FilterBar::startSearch);
    connect(m_checkNow, &QAction::triggered, this, &MainWindow::toggleCheck);
}

void MainWindow::createFileMenu()
{
    m_fileMenu->menuAction()->setObjectName(QStringLiteral("file"));
    m_openProject->setObjectName(QStringLiteral("openProject"));
    m_openProject->setShortcut(QKeySequence(QStringLiteral("Ctrl+O")));
    m_fileMenu->insertSeparator(m_export);
    m_export->setObjectName(QStringLiteral("export"));
    m_import->setObjectName(QStringLiteral("import"));
    m_fileMenu->insertAction(m_quit, m_settings->action());
    m_fileMenu->insertSeparator(m_settings->action());
    m_fileMenu->insertSeparator(m_quit);
    m_quit->setObjectName(QStringLiteral("quit"));
    m_quit->setShortcut(QKeySequence(QStringLiteral("Ctrl+Q")));
    connect(m_openProject, &QAction::triggered, this, &MainWindow::chooseProject);
    connect(m_export, &QAction::triggered, this, &MainWindow::exportFavourites);
    connect(m_import, &QAction::triggered, this, &MainWindow::importFavourites);
    connect(m_quit, &QAction::triggered, this, &MainWindow::quit);
}

void MainWindow::createViewMenu()
{
    m_viewMenu->menuAction()->setObjectName(QStringLiteral("view"));
    m_unfolded->setObjectName(QStringLiteral("unfolded"));
    m_unfolded->setShortcut(QKeySequence(QStringLiteral("F9")));
    m_unfolded->setCheckable(true);
    m_viewMenu->addAction(m_unfolded);
    connect(m_unfolded, &QAction::triggered, m_splitter, &FoldingPanes::setUnfolded);
    connect(m_splitter, &FoldingPanes::unfoldedChanged, this, [this](bool isUnfolded) {
        m_unfolded->setChecked(isUnfolded);
        m_preferences.setDetailsUnfolded(isUnfolded);
    });
    connect(m_splitter, &FoldingPanes::wentBack, this,
            [this] { m_tabs->currentList()->setFocus(); });
}

void MainWindow::createHelpMenu()
{
    m_helpMenu->menuAction()->setObjectName(QStringLiteral("help"));
    m_helpMenu->addActions({m_keys, m_about});
    m_keys->setObjectName(QStringLiteral("keys"));
    m_keys->setShortcut(QKeySequence(QStringLiteral("F1")));
    m_about->setObjectName(QStringLiteral("aboutProgram"));
    connect(m_keys, &QAction::triggered, this, &MainWindow::showKeys);
    connect(m_about, &QAction::triggered, this, [this] {
        auto* const about = new AboutDialog(this);
        about->setAttribute(Qt::WA_DeleteOnClose);
        about->open();
        about->activateWindow(); // in case no window manager does it
    });
}

void MainWindow::connectParts()
{
    connect(m_tabs, &ResourceTabs::applied, this, [this](const SCfg_Item* item) {
        say(tr("Applied: %1").arg(item->m_qsName));
        showApplied();
    });
    connect(m_tabs, &ResourceTabs::currentTabChanged, this, [this](int tab) {
        m_preferences.setTab(tab);
        showApplied();
    });
    connect(statusBar(), &QStatusBar::messageChanged, m_status, &CheckStatus::makeRoomFor);
    connect(m_tabs, &ResourceTabs::filterChanged, this, &MainWindow::storeFilter);
    connect(m_tabs->checkButton(), &QPushButton::clicked, this, &MainWindow::toggleCheck);
    connect(&m_check, &CatalogueUpdate::phaseChanged, this, &MainWindow::refreshCheckButton);
    connect(&m_check, &CatalogueUpdate::contentArrived, this, &MainWindow::requestReload);
    connect(&m_check, &CatalogueUpdate::finished, this, &MainWindow::passSkinOn);
    connect(m_details, &DetailsPanel::folderWanted, this, &MainWindow::openFolder);
    connect(m_details, &DetailsPanel::applyWanted, this, &MainWindow::retry);
    connect(m_details, &DetailsPanel::favouriteWanted, this,
            [this](ECfgItemType kind, const QString& guid) { toggleFavourite(kind, guid); });
    connect(m_failure, &FailureList::retryWanted, this,
            [this](ECfgItemType kind, const QString& guid) { retry(kind, guid); });
}

/// Only what narrows a list lastingly: a search, or a filter of favorites, would surprise at the
/// next start.
void MainWindow::storeFilter()
{
    const FilterBar* const filter = m_tabs->filterBar();
    if (filter->themeType() != m_preferences.themeType())
        m_preferences.setThemeType(filter->themeType());
    if (filter->order() != m_preferences.order())
        m_preferences.setOrder(filter->order());
}

void MainWindow::connectView()
{
    connect(m_viewMenu, &ViewMenu::skinChosen, this, &MainWindow::applySkin);
    connect(m_viewMenu, &ViewMenu::languageChosen, this, &MainWindow::applyLanguage);
    connect(m_viewMenu, &ViewMenu::scaleChosen, this, &MainWindow::applyScale);
    connect(m_viewMenu, &ViewMenu::motionReducedChosen, this, [this](bool reduced) {
        m_preferences.setMotion(reduced ? Preferences::Motion::Reduced : Preferences::Motion::Full);
        applyMotion();
    });
}

void MainWindow::connectCells()
{
    MVThemeMgr* const catalogue = MVThemeMgr::init();
    // Deferred, since the clicked cell is still busy; once for several changes.
    m_favouritesChanged->setSingleShot(true);
    connect(m_favouritesChanged, &QTimer::timeout, this, &MainWindow::refreshFavourites);
    const auto favouritesChanged = [this] { m_favouritesChanged->start(0); };
    connect(catalogue, &MVThemeMgr::sigThemesCollected, this, favouritesChanged);
    connect(catalogue, &MVThemeMgr::sigFilterCollected, this, favouritesChanged);
    const CellEvents* const cells = CellEvents::instance();
    connect(cells, &CellEvents::favouriteToggled, this, &MainWindow::noteFavourite);
    connect(m_undo, &UndoAction::favouriteWanted, this, &MainWindow::undoFavourite);
    connect(cells, &CellEvents::moreWanted, this, &MainWindow::openMore);
    connect(cells, &CellEvents::downloadStarted, m_failure, &FailureList::forget);
    connect(cells, &CellEvents::downloadEnded, this,
            [this](ECfgItemType kind, const QString& guid, const SItemDownloadResult& result) {
                if (result.m_eEnd == eItemDownload_Failed)
                    showFailure(kind, guid, result.m_failure);
                m_details->refresh();
                m_storage->refresh();
                m_settings->lookAtFolder();
            });
}

void MainWindow::restore()
{
    const QSize room = screen()->availableSize();
    constexpr double share = 0.6; // of a large screen
    resize((QSizeF(room) * share).toSize().expandedTo(firstWindowSize).boundedTo(room));
    restoreGeometry(m_preferences.geometry());
    const QSize largest = screen()->availableVirtualSize();
    if (size().boundedTo(largest) != size())
        resize(size().boundedTo(largest)); // a damaged value could crash a window system
    m_unfolded->setChecked(m_preferences.areDetailsUnfolded());
    m_splitter->setUnfolded(m_preferences.areDetailsUnfolded());
    const QList<int> sizes = m_preferences.splitterSizes();
    if (sizes.size() == m_splitter->count())
        m_splitter->setSizes(sizes);
    m_tabs->filterBar()->setThemeType(m_preferences.themeType());
    m_tabs->filterBar()->setOrder(m_preferences.order());
    m_tabs->setNew(m_seen.newItems());
    m_tabs->setCurrentTab(m_preferences.tab());
    applyMotion();
    m_tabs->setAppliedByClick(m_preferences.isAppliedByClick());
    m_tabs->currentList()->setFocus();
    if (ProductParam::text(ProductParam::serverRoot).isEmpty())
        welcome();
}

void MainWindow::retranslate()
{
    setWindowTitle(tr("Slideshow resources"));
    m_fileMenu->setTitle(tr("&File"));
    m_openProject->setText(tr("&Open project…"));
    m_export->setText(tr("&Export favorites…"));
    m_import->setText(tr("&Import favorites…"));
    m_quit->setText(tr("&Quit"));
    m_resourcesMenu->setTitle(tr("&Resources"));
    m_find->setText(tr("&Find"));
    m_showDetails->setText(tr("Show &details"));
    m_helpMenu->setTitle(tr("&Help"));
    m_keys->setText(tr("&Keys"));
    m_about->setText(tr("&About this program"));
    m_unfolded->setText(tr("&Details beside the list"));
    m_storage->retranslate();
    m_undo->retranslate();
    m_settings->retranslate();
    refreshCheckButton();
}

void MainWindow::changeEvent(QEvent* event)
{
    QMainWindow::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        retranslate();
}

void MainWindow::closeEvent(QCloseEvent* event)
{
    if (event->spontaneous() && !isQuittingAgreed()) {
        event->ignore();
        return;
    }
    LogL("mveditor", 2, "the window closes, %s",
         event->spontaneous() ? "asked to by the window system" : "by a command of its own");
    m_preferences.setGeometry(saveGeometry());
    m_preferences.setSplitterSizes(m_splitter->sizes());
    m_seen.save();
    disconnect(&m_check, nullptr, this, nullptr);
    hide(); // ending downloads and the check may take a second, which nobody should have to watch
    m_tabs->cancelDownloads();
    m_storage->shutDown();
    event->accept();
}
