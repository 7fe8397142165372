// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "ItemKey.h"
#include "records/ECfgItemType.h"

#include <QMap>
#include <QSet>
#include <QVector>
#include <QWidget>

class FilterBar;
class QPushButton;
class QStackedWidget;
class QTabBar;
class QToolButton;
class ResourceList;
class MVThemeItemWdg;
struct SCellState;
struct SCfg_Item;

/// The lists as tabs, and above them the controls that filter their items. Filters have two lists,
/// with small and with large cells, on one tab.
class ResourceTabs : public QWidget
{
    Q_OBJECT

public:
    explicit ResourceTabs(QWidget* parent);

    /// Returns the number of the shown list: 0 themes, 1 filters, 2 filters in large cells, 3
    /// backgrounds.
    int currentTab() const;
    void setCurrentTab(int tab);
    FilterBar* filterBar() const { return m_filter; }
    ResourceList* currentList() const;
    const QVector<ResourceList*>& lists() const { return m_lists; }
    QPushButton* checkButton() const { return m_check; }

    /// Returns the GUID of the currently applied item; empty if there is none.
    QString appliedItem(ECfgItemType kind) const { return m_applied.value(kind); }

    /// Shows the cell of an item, if necessary on another tab and without the current filter;
    /// returns null if there is none. Use the cell at once: it exists at least until control
    /// returns to the event loop.
    MVThemeItemWdg* reveal(ECfgItemType kind, const QString& guid);

    void refreshFavourites();
    /// Marks the items for which an update is available.
    void setUpdatable(const QVector<ItemKey>& items);
    /// Names the items, by GUID, that are the newest.
    void setNew(const QSet<QString>& guids);
    /// Reloads the catalogue and keeps the user's view. Neither a check nor a preview run may be in
    /// progress; downloads are stopped and restarted. Uses another download root from now on,
    /// unless that is empty.
    void reloadCatalogue(const QString& newRoot = QString());
    /// Applies the skin's current cell sizes.
    void updateItemSizes();
    void cancelDownloads();
    /// Sets whether a click applies an item; otherwise it makes it the current one.
    void setAppliedByClick(bool applied);
    bool isAppliedByClick() const { return m_isAppliedByClick; }
    /// Returns what the lists know of an item, first the list that downloads it.
    SCellState stateOf(const ItemKey& item) const;

signals:
    void currentTabChanged(int tab);
    void filterChanged();
    void applied(SCfg_Item* item);

protected:
    void changeEvent(QEvent* event) override;

private:
    void createLists();
    void arrange();
    void connectParts();
    void retranslate();
    void applyFilter();
    void showCurrent();
    void noteApplied(const ResourceList* from, SCfg_Item* item);

    QTabBar* m_tabs;
    QToolButton* m_large; // the cells of filters
    QPushButton* m_check;
    FilterBar* m_filter;
    QStackedWidget* m_pages;
    QVector<ResourceList*> m_lists;
    QMap<ECfgItemType, QString> m_applied;
    bool m_isAppliedByClick = true;
};
