// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

// MainWindow: the details and the files of items, and reloading the catalogue.

#include "browser/mvThemelistview.h"
#include "DetailsPanel.h"
#include "download/CatalogueUpdate.h"
#include "DownloadFolder.h"
#include "DownloadsBar.h"
#include "FavouriteBar.h"
#include "FoldingPanes.h"
#include "ItemFacts.h"
#include "ItemMenu.h"
#include "ItemRemovals.h"
#include "ItemUpdates.h"
#include "MainWindow.h"
#include "Preferences.h"
#include "ProjectDialog.h"
#include "records/KindTable.h"
#include "records/SCfg_Item.h"
#include "ResourceList.h"
#include "ResourceTabs.h"
#include "SettingsControls.h"
#include "StorageControls.h"
#include "UndoAction.h"
#include "WelcomePage.h"

#include <QAction>
#include <QFileDialog>
#include <QFileInfo>
#include <QMessageBox>
#include <QStackedWidget>

#include <algorithm>
#include <utility>

void MainWindow::connectStorage()
{
    connect(m_storage, &StorageControls::reloadWanted, this, &MainWindow::requestReload);
    connect(m_storage, &StorageControls::said, this, &MainWindow::say);
    const ItemUpdates* const updates = &m_storage->updates();
    connect(updates, &ItemUpdates::reportsChanged, this,
            [this, updates] { m_tabs->setUpdatable(updates->updatable()); });
    connect(&m_check, &CatalogueUpdate::finished, m_storage, &StorageControls::refresh);
    connect(&m_check, &CatalogueUpdate::phaseChanged, this, [this] {
        if (m_isReloadPending)
            requestReload();
    });
    connect(m_showDetails, &QAction::triggered, this, [this] {
        const ResourceList* const list = m_tabs->currentList();
        showDetails({list->kind(), list->currentItem()});
    });
}

/// Shows an item that need not be applied, until another one is.
void MainWindow::showDetails(const ItemKey& item)
{
    if (item.isEmpty())
        return;
    m_details->showItem(item.kind, item.guid);
    m_splitter->showDetails();
}

/// Shows the current item, where a click only selects.
void MainWindow::showCurrent()
{
    const ResourceList* const list = m_tabs->currentList();
    if (!m_tabs->isAppliedByClick() && !list->currentItem().isEmpty())
        m_details->showItem(list->kind(), list->currentItem());
}

void MainWindow::connectLists()
{
    for (const ResourceList* list : m_tabs->lists()) {
        connect(list->view(), &mvThemelistview::sigContextMenuRequested, this,
                [this, list](const QString& guid, const QPoint& globalPos) {
                    showItemMenu({list->kind(), guid}, globalPos);
                });
        connect(list->view(), &mvThemelistview::detailsRequested, this,
                [this, list](const QString& guid) {
                    showDetails({list->kind(), guid});
                });
        connect(list, &ResourceList::currentChanged, this, &MainWindow::showCurrent);
        connect(list, &ResourceList::favouriteWanted, this, &MainWindow::toggleFavourite);
    }
    connect(m_downloads, &DownloadsBar::cancelWanted, m_tabs, &ResourceTabs::cancelDownloads);
    connect(m_favouriteBar, &FavouriteBar::undoWanted, this, [this](const ItemKey& item) {
        m_undo->forgetFavourite(item);
        undoFavourite(item, true); // the bar offers to undo removals only
    });
    connect(m_settings, &SettingsControls::clickChosen, this,
            [this] { m_tabs->setAppliedByClick(m_preferences.isAppliedByClick()); });
}

void MainWindow::showItemMenu(const ItemKey& item, const QPoint& globalPos)
{
    ItemMenu::Facts facts;
    facts.state = m_tabs->currentList()->view()->stateOf(item.guid);
    facts.hasFavourites = !KindTable::of(item.kind).exportName.isEmpty();
    const auto report = m_storage->updates().report(item);
    facts.canBeRemoved = report && report->ownBytes > 0 && !m_storage->updates().isUpdating();
    auto* const menu = new ItemMenu(item, facts, this);
    connectMenu(*menu);
    menu->popup(globalPos);
}

void MainWindow::connectMenu(const ItemMenu& menu)
{
    connect(&menu, &ItemMenu::applyWanted, this,
            [this](const ItemKey& item) { retry(item.kind, item.guid); });
    connect(&menu, &ItemMenu::downloadWanted, m_storage, &StorageControls::update);
    connect(&menu, &ItemMenu::updateWanted, m_storage, &StorageControls::update);
    connect(&menu, &ItemMenu::cancelWanted, this, [this](const ItemKey& item) {
        m_tabs->currentList()->view()->cancelDownload(item.guid);
    });
    connect(&menu, &ItemMenu::favouriteWanted, this,
            [this](const ItemKey& item) { toggleFavourite(item.kind, item.guid); });
    connect(&menu, &ItemMenu::removeWanted, m_storage, &StorageControls::askAndRemove);
    connect(&menu, &ItemMenu::detailsWanted, this, &MainWindow::showDetails);
    connect(&menu, &ItemMenu::folderWanted, this, &MainWindow::showFolderOf);
}

void MainWindow::showFolderOf(const ItemKey& item)
{
    SCfg_Item* const found = item.find();
    const QVector<ItemFacts::File> files =
        found ? ItemFacts(*found).files() : QVector<ItemFacts::File>();
    const auto present = std::find_if(files.cbegin(), files.cend(),
                                      [](const ItemFacts::File& file) { return file.present; });
    openFolder(present == files.cend() ? DownloadFolder::inUse() : QFileInfo(present->path).path());
}

void MainWindow::connectSettings()
{
    connect(m_settings, &SettingsControls::skinChosen, this, &MainWindow::applySkin);
    connect(m_settings, &SettingsControls::languageChosen, this, &MainWindow::applyLanguage);
    connect(m_settings, &SettingsControls::scaleChosen, this, &MainWindow::applyScale);
    connect(m_settings, &SettingsControls::motionChosen, this, &MainWindow::applyMotion);
    connect(m_settings, &SettingsControls::serverInUse, this, &MainWindow::endWelcome);
    m_settings->setBusyQuery([this] {
        // A check that waits would begin in the middle of a move.
        return m_downloads->count() > 0 || m_storage->updates().isUpdating()
            || m_check.phase() != CatalogueUpdate::Phase::Idle;
    });
    connect(m_settings, &SettingsControls::folderMoved, this, &MainWindow::useFolder);
    connect(m_settings, &SettingsControls::said, this, &MainWindow::say);
}

/// Changes the download root as soon as no thread looks at its files. No check runs: the move has
/// waited for its end and none can be started meanwhile.
void MainWindow::useFolder(const QString& folder)
{
    m_storage->updates().queue().runAlone([this, folder] {
        m_storage->removals().forget(); // their files are known by their places in the old root
        reloadCatalogue(folder);
        m_storage->refresh();
        m_settings->endMove();
    });
}

/// Asks for a server instead of showing lists that nothing fills.
void MainWindow::welcome()
{
    m_welcome = new WelcomePage(m_pages);
    m_pages->setCurrentIndex(m_pages->addWidget(m_welcome));
    m_welcome->setFocus();
    connect(m_welcome, &WelcomePage::skipped, this, &MainWindow::endWelcome);
    connect(m_welcome, &WelcomePage::serverChosen, this, [this](const QString& address) {
        m_preferences.setServer(address);
        if (!m_preferences.storeError().isEmpty())
            say(tr("The settings cannot be saved: %1").arg(m_preferences.storeError()));
        m_settings->useServer(address);
    });
}

void MainWindow::endWelcome()
{
    if (!m_welcome)
        return;
    m_pages->removeWidget(m_welcome);
    std::exchange(m_welcome, nullptr)->deleteLater(); // its button is still busy
    m_tabs->currentList()->setFocus();
}

void MainWindow::chooseProject()
{
    const QString path = QFileDialog::getOpenFileName(this, tr("Open project"), QString(),
                                                      QStringLiteral("JSON (*.json)"));
    if (!path.isEmpty())
        openProject(path);
}

void MainWindow::openProject(const QString& path)
{
    ProjectFile file;
    if (!file.read(path)) {
        QMessageBox::warning(this, tr("Open project"), file.errorText());
        return;
    }
    delete m_project;
    m_project =
        new ProjectDialog(m_storage->updates(), QFileInfo(path).fileName(), file.items(), this);
    m_project->setAttribute(Qt::WA_DeleteOnClose);
    m_project->show();
    m_project->activateWindow(); // in case no window manager does it
}

/// Reloads the catalogue as soon as nothing uses it.
void MainWindow::requestReload()
{
    m_isReloadPending = true;
    m_storage->updates().queue().runAlone([this] { reloadIfPossible(); });
}

/// A check that is copying its files must not be disturbed; its end requests the reload again.
void MainWindow::reloadIfPossible()
{
    if (!m_isReloadPending || m_check.phase() == CatalogueUpdate::Phase::Catalogue)
        return;
    m_isReloadPending = false;
    reloadCatalogue();
}

void MainWindow::reloadCatalogue(const QString& newRoot)
{
    saveFavourites(); // they are reloaded, too
    passSkinOn();
    m_tabs->reloadCatalogue(newRoot);
    m_tabs->setNew(m_seen.newItems());
    m_details->refresh();
    if (m_project)
        m_project->refresh();
    ++m_reloads;
}
