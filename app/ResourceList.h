// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "browser/EUIItemType.h"
#include "FilterPart.h"
#include "records/ECfgItemType.h"

#include <QSet>
#include <QString>
#include <QWidget>

class EmptyNote;
class MVThemeItemWdg;
class mvThemelistview;
class QKeyEvent;
struct SCfg_Item;

/// One list of resources with its filter, and a message if it is empty.
class ResourceList : public QWidget
{
    Q_OBJECT

public:
    ResourceList(EUIItemType type, QWidget* parent);

    EUIItemType type() const { return m_type; }
    ECfgItemType kind() const;
    mvThemelistview* view() const { return m_view; }

    /// Shows the items that pass a filter; `text` is that of its words, for messages.
    void setFilter(const SListFilter& filter, const QString& text);
    /// Applies the filter again, after favourites or files have changed.
    void refilter();
    /// Returns the GUID of the current item; empty if there is none.
    QString currentItem() const;
    /// Returns the number of rows, including "More>>".
    int shownItems() const;

    /// Returns whether the item has a row that passes the filter.
    bool isShown(const QString& guid) const;
    /// Makes a shown item the current one and scrolls to it; returns null if it is not shown. Use
    /// the cell at once, see mvThemelistview::cell().
    MVThemeItemWdg* reveal(const QString& guid);
    /// Applies the skin's current cell size.
    void updateItemSize();
    /// Updates the marks of the favourites.
    void refreshFavourites();
    /// Marks the items for which an update is available, by GUID.
    void setUpdatable(const QSet<QString>& guids);
    /// Names the items, by GUID, that are the newest.
    void setNew(const QSet<QString>& guids);

signals:
    /// The user has applied an item.
    void applied(SCfg_Item* item);
    /// Another row has become the current one.
    void currentChanged();
    /// The user has pressed the key of the favorites.
    void favouriteWanted(ECfgItemType kind, const QString& guid);
    /// The list is empty, and the user wants to remove this condition, or all if there are several.
    void filterUnwanted(FilterPart part);
    void filtersUnwanted();

protected:
    void changeEvent(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void showItems();
    void nameList();
    void showWhyEmpty();
    void placeWhyEmpty();
    void shareWidth();
    void removeFilter();
    bool isAnyItemShown() const;
    bool wouldShowAny(const SListFilter& filter) const;
    void explain(FilterPart part);
    bool toggleFavouriteBy(const QKeyEvent& key);

    EUIItemType m_type;
    mvThemelistview* m_view;
    EmptyNote* m_whyEmpty;
    SListFilter m_filter;
    QString m_text; // of its words
    bool m_isOnePartInTheWay = false;
    FilterPart m_partInTheWay = FilterPart::Words; // removing it fills the list
};
