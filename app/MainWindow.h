// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "records/ECfgItemType.h"

#include "SeenItems.h"

#include <QMainWindow>
#include <QPointer>

class CatalogueUpdate;
class CheckStatus;
class DetailsPanel;
class DownloadsBar;
class FavouriteBar;
class FailureList;
class FoldingPanes;
class ItemMenu;
class Preferences;
class ProjectDialog;
class QAction;
class QMenu;
class QTimer;
class QStackedWidget;
class ResourceTabs;
class SettingsControls;
class StorageControls;
class UndoAction;
class ViewMenu;
class WelcomePage;
struct ItemKey;
struct STransferFailure;

/// The window: lists on the left, the applied item on the right, the check in the status bar.
class MainWindow : public QMainWindow
{
    Q_OBJECT

public:
    /// Both must outlive the window.
    MainWindow(Preferences& preferences, CatalogueUpdate& check);
    ~MainWindow() override;

    ResourceTabs* tabs() const { return m_tabs; }
    CheckStatus* checkStatus() const { return m_status; }
    SettingsControls* settings() const { return m_settings; }
    /// Opens a project: says which of its items are ready, and why it cannot be read.
    void openProject(const QString& path);
    /// Returns how many times the catalogue was reloaded.
    int reloads() const { return m_reloads; }
    /// Returns whether new files are waiting for a reload.
    bool isReloadPending() const { return m_isReloadPending; }

protected:
    void changeEvent(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    void arrange();
    void createMenus();
    void createFileMenu();
    void createViewMenu();
    void createHelpMenu();
    void connectParts();
    void connectView();
    void connectCells();
    void connectStorage();
    void connectSettings();
    void connectLists();
    void connectMenu(const ItemMenu& menu);
    void welcome();
    void endWelcome();
    void storeFilter();
    void restore();
    void retranslate();

    void showApplied();
    void applySkin(const QString& skin);
    void applyMotion();
    void applyLanguage(const QString& language);
    void applyScale(int percent);
    void showDetails(const ItemKey& item);
    void showCurrent();
    void showFolderOf(const ItemKey& item);
    void quit();
    bool isQuittingAgreed();
    void showKeys();
    void showItemMenu(const ItemKey& item, const QPoint& globalPos);
    void chooseProject();
    void requestReload();
    void reloadIfPossible();
    void reloadCatalogue(const QString& newRoot = QString());
    void passSkinOn();
    void toggleCheck();
    void refreshCheckButton();
    void refreshFavourites();
    void saveFavourites();
    void toggleFavourite(ECfgItemType kind, const QString& guid);
    void setFavourite(const ItemKey& item, bool isFavourite);
    void noteFavourite(ECfgItemType kind, const QString& guid);
    void undoFavourite(const ItemKey& item, bool isFavourite);
    void showFailure(ECfgItemType kind, const QString& guid, const STransferFailure& failure);
    void retry(ECfgItemType kind, const QString& guid);
    void openFolder(const QString& folder);
    void useFolder(const QString& folder);
    void openMore();
    void exportFavourites();
    void importFavourites();
    void say(const QString& text);

    Preferences& m_preferences;
    CatalogueUpdate& m_check;
    SeenItems m_seen;
    QStackedWidget* m_pages;
    FoldingPanes* m_splitter;
    ResourceTabs* m_tabs;
    DetailsPanel* m_details;
    FailureList* m_failure;
    DownloadsBar* m_downloads;
    FavouriteBar* m_favouriteBar;
    CheckStatus* m_status;
    StorageControls* m_storage;
    UndoAction* m_undo;
    SettingsControls* m_settings;
    WelcomePage* m_welcome = nullptr; // null: a server is known
    QTimer* m_favouritesChanged;
    QMenu* m_fileMenu;
    QMenu* m_resourcesMenu;
    ViewMenu* m_viewMenu;
    QMenu* m_helpMenu;
    QAction* m_openProject;
    QAction* m_export;
    QAction* m_import;
    QAction* m_quit;
    QAction* m_find;
    QAction* m_checkNow;
    QAction* m_showDetails;
    QAction* m_unfolded;
    QAction* m_about;
    QAction* m_keys;
    QPointer<ProjectDialog> m_project; // deletes itself when it is closed
    bool m_isReloadPending = false;
    int m_reloads = 0;
};
