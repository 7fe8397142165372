// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "browser/MvBrowserExport.h"
#include "records/ECfgItemType.h"

#include <QBitArray>
#include <QSortFilterProxyModel>
#include <QString>

#include <memory>

class CatalogueIndex;
class ListFiles;
class RowOrder;
struct SCfg_Item;
struct SListFilter;
enum class EListOrder : int;

/// Type of the patterns of names, that of the class's Qt filter: filterRegExp() with Qt 5,
/// filterRegularExpression() with Qt 6.
#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
#include <QRegExp>
using NamePattern = QRegExp;
#else
#include <QRegularExpression>
using NamePattern = QRegularExpression;
#endif

/// Filters the rows of a resource list by theme type, or favourites, and by name; with an
/// SListFilter by more, and sorts them.
///
/// The name is matched by namePattern(), anywhere in the name (an invalid pattern matches none, an
/// empty one every name), or by the words of an SListFilter. The catalogue is queried for
/// favourites when the filter is applied.
///
/// The disk is never touched: from the first SListFilter on that asks for files or sizes, a thread
/// looks at them, and the rows follow what it finds, and downloads and removals. An item that has
/// not been looked at stays as it is, shown or not, and sorts as if it were empty. GUI thread only.
class MVBROWSER_EXPORT MVThemeSortFilterProxyModel : public QSortFilterProxyModel
{
    Q_OBJECT

public:
    /// The theme type that shows every row.
    static constexpr int allThemes = 999;
    /// The theme type that shows the favourite themes.
    static constexpr int favouriteThemes = 1;

    /// Creates a model that shows every row of its source.
    explicit MVThemeSortFilterProxyModel(QObject* parent);
    ~MVThemeSortFilterProxyModel() override;

    /// Sets the model of the rows, whose roles are those of EUIItemRole. The proxy's rows follow
    /// its changes, in their order, too.
    void setSourceModel(QAbstractItemModel* source) override;

    /// Sets the kind of the rows' items, by which an SListFilter finds them; themes at first.
    void setKind(ECfgItemType kind);

    /// Shows the rows of this type (MVThemeMgr::Themetype), all (999) or the favourite themes (1).
    void setThemeType(int themeType);
    /// Returns the theme type shown.
    int themeType() const { return m_nThemeType; }
    /// Sets the type as well as the pattern of the names and filters once.
    void setFilter(int themeType, const NamePattern& name);

    /// Returns the pattern with this text that ignores case; NamePattern::escape() makes the text
    /// of one that matches a name literally.
    static NamePattern ignoringCase(const QString& text);
    /// Sets the model's filter, which Qt calls filterRegExp() or filterRegularExpression().
    void setNamePattern(const NamePattern& name);
    /// Returns that filter.
    NamePattern namePattern() const;

    /// Filters and sorts by `filter`, until the other setFilter() is called. The same filter again
    /// looks at the files again.
    void setFilter(const SListFilter& filter);
    /// Moves rows that have come since to their places in its order.
    void sortAgain();
    /// Returns whether an SListFilter applies.
    bool hasListFilter() const { return m_pFilter != nullptr; }
    /// Returns that filter; the default one if none applies.
    SListFilter listFilter() const;
    /// Returns whether the filter or the order depends on files that have not been looked at.
    bool isLookingAtFiles() const;

    /// Returns whether a row of the source has the theme type and a matching name.
    bool filterAcceptsRow(int row, const QModelIndex& parent) const override;

signals:
    /// The rows are about to follow changed files.
    void followingFiles();
    /// The rows have followed them, or no file is left to be looked at.
    void filesFollowed();

protected:
    /// Orders two rows of the source by the list's filter; "More>>" is last.
    bool lessThan(const QModelIndex& left, const QModelIndex& right) const override;

private:
    bool isFavouriteTheme(const QString& guid) const;
    bool passesListFilter(const QModelIndex& row) const;
    bool passesOnDisk(const QModelIndex& row, const QString& guid) const;
    bool usesFiles() const;
    void lookAtFiles(bool again);
    void followFiles();
    void applyListFilter();
    void sortBy(EListOrder order);
    void followRows(const QAbstractItemModel& source);
    QBitArray shownRows() const;
    SCfg_Item* itemOf(const QString& guid) const;
    void dropListFilter();

    int m_nThemeType = allThemes;
    ECfgItemType m_eKind = eCfgItem_Theme;
    std::unique_ptr<SListFilter> m_pFilter; // null: namePattern() matches the names
    std::unique_ptr<RowOrder> m_pOrder;     // null: the rows are not sorted
    std::unique_ptr<QObject> m_pFollower;   // receives the source's signals for m_pOrder
    CatalogueIndex* m_pIndex = nullptr;     // of the catalogue while setFilter() runs
    QBitArray m_shownBefore;                // rows of the source, while the list filter is applied
    std::unique_ptr<ListFiles> m_pFiles;    // null until a filter asks for files
};
