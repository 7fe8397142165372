// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "ItemKey.h"
#include "records/ECfgItemType.h"

#include <QMap>
#include <QVector>
#include <QWidget>

class QComboBox;
class QLineEdit;
class QPushButton;
class QStackedWidget;
class QTabBar;
class ResourceList;
class MVThemeItemWdg;
struct SCfg_Item;

/// The four lists as tabs, and above them the controls that filter their items.
class ResourceTabs : public QWidget
{
    Q_OBJECT

public:
    explicit ResourceTabs(QWidget* parent);

    int currentTab() const;
    void setCurrentTab(int tab);
    int themeType() const;
    void setThemeType(int type);
    ResourceList* currentList() const;
    const QVector<ResourceList*>& lists() const { return m_lists; }
    QPushButton* checkButton() const { return m_check; }

    /// Returns the GUID of the currently applied item; empty if there is none.
    QString appliedItem(ECfgItemType kind) const { return m_applied.value(kind); }

    /// Shows the cell of an item, if necessary on another tab and without the current filter;
    /// returns null if there is none. Use the cell at once: it exists at least until control
    /// returns to the event loop.
    MVThemeItemWdg* reveal(ECfgItemType kind, const QString& guid);

    /// Moves the keyboard focus to the search field.
    void startSearch();
    void refreshFavourites();
    /// Marks the items for which an update is available.
    void setUpdatable(const QVector<ItemKey>& items);
    /// Reloads the catalogue and keeps the user's view. Neither a check nor a preview run may be in
    /// progress; downloads are stopped and restarted.
    void reloadCatalogue();
    /// Applies the skin's current cell sizes.
    void updateItemSizes();
    void cancelDownloads();

signals:
    void currentTabChanged(int tab);
    void themeTypeChanged(int type);
    void applied(SCfg_Item* item);

protected:
    void changeEvent(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void createLists();
    void createBar();
    void retranslate();
    void applyFilter();
    void showTab(int tab);
    void noteApplied(const ResourceList* from, SCfg_Item* item);

    QTabBar* m_tabs;
    QComboBox* m_types;
    QLineEdit* m_search;
    QPushButton* m_check;
    QStackedWidget* m_pages;
    QVector<ResourceList*> m_lists;
    QMap<ECfgItemType, QString> m_applied;
};
