// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

// MainWindow: the details and the files of items, and reloading the catalogue.

#include "browser/EUIItemRole.h"
#include "browser/mvThemelistview.h"
#include "DetailsPanel.h"
#include "download/CatalogueUpdate.h"
#include "ItemUpdates.h"
#include "MainWindow.h"
#include "ProjectDialog.h"
#include "records/SCfg_Item.h"
#include "ResourceList.h"
#include "ResourceTabs.h"
#include "StorageControls.h"

#include <QAction>
#include <QFileDialog>
#include <QFileInfo>
#include <QMenu>
#include <QMessageBox>

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
        showDetails({list->kind(), list->view()->currentIndex().data(UIItemRole_GUID).toString()});
    });
    for (const ResourceList* list : m_tabs->lists()) {
        connect(list->view(), &mvThemelistview::sigContextMenuRequested, this,
                [this, list](const QString& guid, const QPoint& globalPos) {
                    showItemMenu({list->kind(), guid}, globalPos);
                });
    }
}

/// Shows an item that need not be applied, until another one is.
void MainWindow::showDetails(const ItemKey& item)
{
    if (!item.isEmpty())
        m_details->showItem(item.kind, item.guid);
}

void MainWindow::showItemMenu(const ItemKey& item, const QPoint& globalPos)
{
    auto* const menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    QAction* const details = menu->addAction(tr("Show &details"));
    details->setObjectName(QStringLiteral("itemDetails"));
    connect(details, &QAction::triggered, this, [this, item] { showDetails(item); });
    menu->popup(globalPos);
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

void MainWindow::reloadCatalogue()
{
    saveFavourites(); // they are reloaded, too
    passSkinOn();
    m_tabs->reloadCatalogue();
    m_details->refresh();
    if (m_project)
        m_project->refresh();
    ++m_reloads;
}
