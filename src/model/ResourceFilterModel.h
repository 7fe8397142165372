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
    /// Only items that the user has marked.
    Q_PROPERTY(bool favouritesOnly READ favouritesOnly WRITE setFavouritesOnly NOTIFY
                   favouritesOnlyChanged)
    /// Only items that can be used, outdated and damaged ones included.
    Q_PROPERTY(bool readyOnly READ readyOnly WRITE setReadyOnly NOTIFY readyOnlyChanged)
    /// Only items that an update changes: outdated and damaged ones, also while they are updated.
    Q_PROPERTY(bool outdatedOnly READ outdatedOnly WRITE setOutdatedOnly NOTIFY outdatedOnlyChanged)
    /// The order of the rows; Published by default.
    Q_PROPERTY(ResourceFilterModel::Order order READ order WRITE setOrder NOTIFY orderChanged)
    /// The number of rows.
    Q_PROPERTY(int count READ count NOTIFY countChanged)

public:
    /// The value of AllThemeTypes.
    static constexpr int allThemeTypes = -1;
    /// A value of themeType that selects every type; not a code of the catalogue.
    enum ThemeType { AllThemeTypes = allThemeTypes };
    Q_ENUM(ThemeType)

    /// Orders of the rows.
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

    /// Creates a filter without a source that lets all rows pass.
    explicit ResourceFilterModel(QObject* parent = nullptr);

    /// Returns the property of that name.
    const QString& searchText() const { return m_searchText; }
    /// Sets the property searchText.
    void setSearchText(const QString& text);
    /// Returns the property of that name.
    int themeType() const { return m_themeType; }
    /// Sets the property themeType.
    void setThemeType(int type);
    /// Returns the property of that name.
    bool favouritesOnly() const { return m_favouritesOnly; }
    /// Sets the property favouritesOnly.
    void setFavouritesOnly(bool only);
    /// Returns the property of that name.
    bool readyOnly() const { return m_readyOnly; }
    /// Sets the property readyOnly.
    void setReadyOnly(bool only);
    /// Returns the property of that name.
    bool outdatedOnly() const { return m_outdatedOnly; }
    /// Sets the property outdatedOnly.
    void setOutdatedOnly(bool only);
    /// Returns the property of that name.
    Order order() const { return m_order; }
    /// Sets the property order.
    void setOrder(ResourceFilterModel::Order order);
    /// Returns the property of that name.
    int count() const { return rowCount(); }

    /// Returns the row of an item; -1 if it is not shown.
    Q_INVOKABLE int rowOf(const QString& guid) const;
    /// Tells which rows a view shows, see ResourceModel::showRows().
    Q_INVOKABLE void showRows(int first, int count);

signals:
    /// The property searchText has changed.
    void searchTextChanged();
    /// The property themeType has changed.
    void themeTypeChanged();
    /// The property favouritesOnly has changed.
    void favouritesOnlyChanged();
    /// The property readyOnly has changed.
    void readyOnlyChanged();
    /// The property outdatedOnly has changed.
    void outdatedOnlyChanged();
    /// The property order has changed.
    void orderChanged();
    /// The number of rows has changed.
    void countChanged();

protected:
    /// Returns whether the row meets all conditions that are set.
    bool filterAcceptsRow(int sourceRow, const QModelIndex& sourceParent) const override;
    /// Compares two rows by the order that is set.
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
