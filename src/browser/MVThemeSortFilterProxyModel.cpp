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

void MVThemeSortFilterProxyModel::setFilter(int themeType, const NamePattern& name)
{
    m_nThemeType = themeType;
    setFilterRole(UIItemRole_Name);
    if (themeType != favouriteThemes) {
        setNamePattern(name);
        return;
    }
    CatalogueIndex index(MVThemeMgr::init()->getDisplayXML());
    const QScopedValueRollback<CatalogueIndex*> indexed(m_pIndex, &index);
    setNamePattern(name);
}

#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
NamePattern MVThemeSortFilterProxyModel::ignoringCase(const QString& text)
{
    return QRegExp(text, Qt::CaseInsensitive, QRegExp::RegExp);
}

void MVThemeSortFilterProxyModel::setNamePattern(const NamePattern& name)
{
    setFilterRegExp(name);
}

NamePattern MVThemeSortFilterProxyModel::namePattern() const
{
    return filterRegExp();
}
#else
NamePattern MVThemeSortFilterProxyModel::ignoringCase(const QString& text)
{
    // Classes of characters contain those of every script, as with Qt 5.
    return QRegularExpression(text,
                              QRegularExpression::CaseInsensitiveOption
                                  | QRegularExpression::UseUnicodePropertiesOption);
}

void MVThemeSortFilterProxyModel::setNamePattern(const NamePattern& name)
{
    setFilterRegularExpression(name);
}

NamePattern MVThemeSortFilterProxyModel::namePattern() const
{
    return filterRegularExpression();
}
#endif

bool MVThemeSortFilterProxyModel::filterAcceptsRow(int row, const QModelIndex& parent) const
{
    const QModelIndex index = sourceModel()->index(row, 0, parent);
    const NamePattern name = namePattern();
    const bool matches = name.pattern().isEmpty()
        || (name.isValid() && index.data(UIItemRole_Name).toString().indexOf(name, 0) != -1);
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
