// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "catalogue/SearchWords.h"
#include "model/MvModelExport.h"

#include <QCollator>
#include <QSortFilterProxyModel>
#include <QString>

/// Filters and sorts a ResourceModel, which is its sourceModel (not owned). An item is shown if it
/// meets all conditions that are set. It follows its source: an item that is no longer a favourite
/// leaves the favourites at once. GUID and all other roles are those of the source. GUI thread
/// only.
class MVMODEL_EXPORT ResourceFilterModel : public QSortFilterProxyModel
{
    Q_OBJECT
    /// Words that the name contains, in any order, without regard to case and accents: SearchWords.
    Q_PROPERTY(QString searchText READ searchText WRITE setSearchText NOTIFY searchTextChanged)
    /// A code of ThemeTypes, or AllThemeTypes, the default.
    Q_PROPERTY(int themeType READ themeType WRITE setThemeType NOTIFY themeTypeChanged)
    Q_PROPERTY(bool favouritesOnly READ favouritesOnly WRITE setFavouritesOnly NOTIFY
                   favouritesOnlyChanged)
    /// Only items that can be used, outdated and damaged ones included.
    Q_PROPERTY(bool readyOnly READ readyOnly WRITE setReadyOnly NOTIFY readyOnlyChanged)
    /// Only items that an update changes: outdated and damaged ones, also while they are updated.
    Q_PROPERTY(bool outdatedOnly READ outdatedOnly WRITE setOutdatedOnly NOTIFY outdatedOnlyChanged)
    Q_PROPERTY(ResourceFilterModel::Order order READ order WRITE setOrder NOTIFY orderChanged)
    /// The number of rows.
    Q_PROPERTY(int count READ count NOTIFY countChanged)

public:
    static constexpr int allThemeTypes = -1;
    enum ThemeType { AllThemeTypes = allThemeTypes };
    Q_ENUM(ThemeType)

    enum Order {
        Published, ///< that of the catalogue
        /// By name in the language of QLocale(), numbers by their value. After a change of the
        /// default locale set the order again.
        Name,
        /// The reverse of Published. Neither catalogues nor releases tell when an item was
        /// published; new ones are appended to their list, or to the group of their theme type.
        Newest,
        /// Smallest first, by SizeRole; items that have not been examined yet come first.
        Size,
    };
    Q_ENUM(Order)

    explicit ResourceFilterModel(QObject* parent = nullptr);

    const QString& searchText() const { return m_searchText; }
    void setSearchText(const QString& text);
    int themeType() const { return m_themeType; }
    void setThemeType(int type);
    bool favouritesOnly() const { return m_favouritesOnly; }
    void setFavouritesOnly(bool only);
    bool readyOnly() const { return m_readyOnly; }
    void setReadyOnly(bool only);
    bool outdatedOnly() const { return m_outdatedOnly; }
    void setOutdatedOnly(bool only);
    Order order() const { return m_order; }
    void setOrder(ResourceFilterModel::Order order);
    int count() const { return rowCount(); }

    /// Returns the row of an item; -1 if it is not shown.
    Q_INVOKABLE int rowOf(const QString& guid) const;
    /// Tells which rows a view shows, see ResourceModel::showRows().
    Q_INVOKABLE void showRows(int first, int count);

signals:
    void searchTextChanged();
    void themeTypeChanged();
    void favouritesOnlyChanged();
    void readyOnlyChanged();
    void outdatedOnlyChanged();
    void orderChanged();
    void countChanged();

protected:
    bool filterAcceptsRow(int sourceRow, const QModelIndex& sourceParent) const override;
    bool lessThan(const QModelIndex& left, const QModelIndex& right) const override;

private:
    template <class T>
    void change(T& member, const T& value, void (ResourceFilterModel::*changed)());
    void noteCount();

    QString m_searchText;
    SearchWords m_words;
    int m_themeType = allThemeTypes;
    bool m_favouritesOnly = false;
    bool m_readyOnly = false;
    bool m_outdatedOnly = false;
    Order m_order = Published;
    QCollator m_collator;
    int m_toldCount = 0;
};
