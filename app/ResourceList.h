// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "browser/EUIItemType.h"
#include "browser/MVThemeSortFilterProxyModel.h"
#include "records/ECfgItemType.h"

#include <QPointer>
#include <QSet>
#include <QStringList>
#include <QWidget>

class MVThemeItemWdg;
class mvThemelistview;
class QLabel;
class QTimer;
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

    /// Shows the items of a theme type whose names contain `text`. Only themes have types.
    void setFilter(int themeType, const QString& text);
    /// Applies the filter again, after favourites have changed.
    void refilter();
    /// Returns the number of rows, including "More>>".
    int shownItems() const;

    /// Returns whether the item has a row that passes the filter.
    bool isShown(const QString& guid) const;
    /// Makes a shown item the current one and scrolls to it; returns null if it is not shown. Use
    /// the cell at once, see mvThemelistview::cell().
    MVThemeItemWdg* reveal(const QString& guid);
    /// Updates the marks of the favourites.
    void refreshFavourites();
    /// Marks the cells of items for which an update is available, also those that come into view
    /// later.
    void setUpdatable(const QSet<QString>& guids);

signals:
    /// The user has applied an item.
    void applied(SCfg_Item* item);

protected:
    void changeEvent(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void showItems();
    void applyFilter(int themeType, const QString& text);
    void nameList();
    void showWhyEmpty();
    void placeWhyEmpty();
    QString whyEmpty() const;
    void refreshMarks();

    EUIItemType m_type;
    mvThemelistview* m_view;
    QLabel* m_whyEmpty;
    int m_themeType = MVThemeSortFilterProxyModel::allThemes;
    QString m_text;
    QSet<QString> m_updatable; // GUIDs
    QTimer* m_marksTimer;      // once for all cells that have appeared
};
