// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "browser/MVThemeSortFilterProxyModel.h"

#include "browser/EUIItemRole.h"
#include "catalogue/CatalogueIndex.h"
#include "catalogue/MVThemeMgr.h"

#include <QScopedValueRollback>
#include <QUuid>

MVThemeSortFilterProxyModel::MVThemeSortFilterProxyModel(QObject* parent)
    : QSortFilterProxyModel(parent)
{
}

void MVThemeSortFilterProxyModel::setThemeType(int themeType)
{
    if (themeType == m_nThemeType)
        return;
    m_nThemeType = themeType;
    invalidateFilter();
}

void MVThemeSortFilterProxyModel::setFilter(int themeType, const QRegExp& name)
{
    m_nThemeType = themeType;
    setFilterRole(UIItemRole_Name);
    if (themeType != favouriteThemes) {
        setFilterRegExp(name);
        return;
    }
    CatalogueIndex index(MVThemeMgr::init()->getDisplayXML());
    const QScopedValueRollback<CatalogueIndex*> indexed(m_pIndex, &index);
    setFilterRegExp(name);
}

bool MVThemeSortFilterProxyModel::filterAcceptsRow(int row, const QModelIndex& parent) const
{
    const QModelIndex index = sourceModel()->index(row, 0, parent);
    const QRegExp name = filterRegExp();
    const bool matches =
        name.isEmpty() || index.data(UIItemRole_Name).toString().indexOf(name, 0) != -1;
    if (m_nThemeType == allThemes)
        return matches;
    if (m_nThemeType == favouriteThemes && matches)
        return isFavouriteTheme(index.data(UIItemRole_GUID).toString());
    return m_nThemeType == index.data(UIItemRole_ThemeType).toInt() && matches;
}

bool MVThemeSortFilterProxyModel::isFavouriteTheme(const QString& guid) const
{
    if (QUuid(guid).isNull())
        return false;
    MVThemeMgr* const manager = MVThemeMgr::init();
    const SCfg_Item* const theme = m_pIndex
        ? m_pIndex->find(eCfgItem_Theme, guid)
        : manager->findItemByIDFromDisplay(eCfgItem_Theme, guid);
    return theme && manager->isItemCollect(theme);
}
