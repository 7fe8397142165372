// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "model/ResourceFilterModel.h"

#include "model/ResourceModel.h"

#include <QLocale>
#include <QStringList>

#include <utility>

ResourceFilterModel::ResourceFilterModel(QObject* parent)
    : QSortFilterProxyModel(parent)
{
    m_collator.setNumericMode(true);
    m_collator.setCaseSensitivity(Qt::CaseInsensitive);
    connect(this, &QAbstractItemModel::rowsInserted, this, &ResourceFilterModel::noteCount);
    connect(this, &QAbstractItemModel::rowsRemoved, this, &ResourceFilterModel::noteCount);
    connect(this, &QAbstractItemModel::modelReset, this, &ResourceFilterModel::noteCount);
    connect(this, &QAbstractItemModel::layoutChanged, this, &ResourceFilterModel::noteCount);
}

void ResourceFilterModel::noteCount()
{
    if (std::exchange(m_toldCount, count()) != count())
        emit countChanged();
}

template <class T>
void ResourceFilterModel::change(T& member, const T& value, void (ResourceFilterModel::*changed)())
{
    if (member == value)
        return;
    member = value;
    invalidateFilter();
    emit(this->*changed)();
}

void ResourceFilterModel::setSearchText(const QString& text)
{
    if (text == m_searchText)
        return;
    m_searchText = text;
    const SearchWords words(text);
    if (std::exchange(m_words, words) != words)
        invalidateFilter();
    emit searchTextChanged();
}

void ResourceFilterModel::setThemeType(int type)
{
    change(m_themeType, type, &ResourceFilterModel::themeTypeChanged);
}

void ResourceFilterModel::setFavouritesOnly(bool only)
{
    change(m_favouritesOnly, only, &ResourceFilterModel::favouritesOnlyChanged);
}

void ResourceFilterModel::setReadyOnly(bool only)
{
    change(m_readyOnly, only, &ResourceFilterModel::readyOnlyChanged);
}

void ResourceFilterModel::setOutdatedOnly(bool only)
{
    change(m_outdatedOnly, only, &ResourceFilterModel::outdatedOnlyChanged);
}

void ResourceFilterModel::setOrder(Order order)
{
    const bool hasChanged = std::exchange(m_order, order) != order;
    m_collator.setLocale(QLocale());
    setSortRole(order == Size ? ResourceModel::SizeRole : ResourceModel::NameRole);
    if (order == Published) {
        sort(-1);
    } else {
        sort(0);
        invalidate(); // the column is the same for all orders
    }
    if (hasChanged)
        emit orderChanged();
}

int ResourceFilterModel::rowOf(const QString& guid) const
{
    const auto* const resources = qobject_cast<const ResourceModel*>(sourceModel());
    const int row = resources ? resources->rowOf(guid) : -1;
    return row < 0 ? -1 : mapFromSource(resources->index(row)).row();
}

void ResourceFilterModel::showRows(int first, int count)
{
    auto* const resources = qobject_cast<ResourceModel*>(sourceModel());
    if (!resources)
        return;
    QStringList guids;
    for (int row = qMax(0, first); row < first + count && row < rowCount(); ++row)
        guids.append(index(row, 0).data(ResourceModel::GuidRole).toString());
    resources->showItems(guids);
}

bool ResourceFilterModel::filterAcceptsRow(int sourceRow, const QModelIndex& sourceParent) const
{
    const QModelIndex row = sourceModel()->index(sourceRow, 0, sourceParent);
    if (m_themeType != allThemeTypes
        && row.data(ResourceModel::ThemeTypeRole).toInt() != m_themeType)
        return false;
    if (m_favouritesOnly && !row.data(ResourceModel::FavouriteRole).toBool())
        return false;
    if (m_readyOnly && !row.data(ResourceModel::UsableRole).toBool())
        return false;
    if (m_outdatedOnly && !row.data(ResourceModel::OutdatedRole).toBool())
        return false;
    return m_words.isEmpty() || m_words.matches(row.data(ResourceModel::NameRole).toString());
}

/// Equal items stay in the order of the catalogue: sorting is stable.
bool ResourceFilterModel::lessThan(const QModelIndex& left, const QModelIndex& right) const
{
    switch (m_order) {
    case Published:
        break;
    case Newest:
        return left.row() > right.row();
    case Size:
        return left.data(ResourceModel::SizeRole).toLongLong()
            < right.data(ResourceModel::SizeRole).toLongLong();
    case Name:
        return m_collator.compare(left.data(ResourceModel::NameRole).toString(),
                                  right.data(ResourceModel::NameRole).toString())
            < 0;
    }
    return left.row() < right.row();
}
