#pragma once

#include "browser/EUIItemType.h"
#include "browser/MVThemeSortFilterProxyModel.h"
#include "records/ECfgItemType.h"

#include <QPointer>
#include <QStringList>
#include <QWidget>

class MVThemeItemWdg;
class mvThemelistview;
class QLabel;
struct SCfg_Item;

/// One list of resources with its filter, and what it says where it has nothing to show. It keeps
/// what the user sees over a reload of the catalogue.
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
    /// Rows, "More>>" among them.
    int shownItems() const;

    /// The cell of an item; null while a filter hides it.
    MVThemeItemWdg* cell(const QString& guid) const;
    /// Whether the item has a row that no filter hides.
    bool isShown(const QString& guid) const { return shownRow(guid).isValid(); }
    /// Makes a shown item the current one, in view; null for one that is not shown.
    MVThemeItemWdg* reveal(const QString& guid);
    /// Marks an item as the applied one and says nothing; an empty GUID marks none.
    void markApplied(const QString& guid);
    /// Shows favourites as they are now.
    void refreshFavourites();

    /// Empties the list, for a reload of the catalogue, and remembers what refill() brings back:
    /// place, current cell, applied item, downloads that it stops.
    void release();
    void refill();
    /// Asks all downloads to stop; does not wait.
    void cancelDownloads();
    bool isDownloading() const;

signals:
    /// The user has applied an item.
    void applied(SCfg_Item* item);

protected:
    void changeEvent(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    struct Kept
    {
        QString current;
        QStringList downloads;
        QString lastChoice; // the download that the user has chosen nothing else since
        int scroll = 0;
    };

    void showItems();
    void applyFilter(int themeType, const QString& text);
    void nameList();
    void showWhyEmpty();
    void placeWhyEmpty();
    QString whyEmpty() const;
    QVector<MVThemeItemWdg*> cells() const;
    void makeCurrent(const QString& guid);
    QModelIndex shownRow(const QString& guid) const;

    EUIItemType m_type;
    mvThemelistview* m_view;
    QLabel* m_whyEmpty;
    int m_themeType = MVThemeSortFilterProxyModel::allThemes;
    QString m_text;
    QString m_applied;
    Kept m_kept;
    bool m_marking = false; // the list's signal is an echo of markApplied()
};
