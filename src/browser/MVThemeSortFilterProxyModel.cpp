// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "browser/MVThemeSortFilterProxyModel.h"

#include "browser/EUIItemRole.h"
#include "browser/RowOrder.h"
#include "browser/SListFilter.h"
#include "catalogue/CatalogueIndex.h"
#include "catalogue/ItemFiles.h"
#include "catalogue/MVThemeMgr.h"

#include <QScopedValueRollback>
#include <QUuid>

MVThemeSortFilterProxyModel::MVThemeSortFilterProxyModel(QObject* parent)
    : QSortFilterProxyModel(parent)
{
}

MVThemeSortFilterProxyModel::~MVThemeSortFilterProxyModel() = default;

void MVThemeSortFilterProxyModel::setThemeType(int themeType)
{
    if (themeType == m_nThemeType)
        return;
    m_nThemeType = themeType;
    invalidateFilter();
}

void MVThemeSortFilterProxyModel::setFilter(int themeType, const NamePattern& name)
{
    dropListFilter();
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

void MVThemeSortFilterProxyModel::dropListFilter()
{
    if (!m_pFilter)
        return;
    m_pFilter.reset();
    m_pOrder.reset();
    sort(-1);
}

void MVThemeSortFilterProxyModel::setFilter(const SListFilter& filter)
{
    const bool wasSorted = m_pOrder != nullptr;
    m_pFilter = std::make_unique<SListFilter>(filter);
    m_nThemeType = filter.themeType;
    m_pOrder.reset();
    if (filter.order != EListOrder::Published)
        m_pOrder = std::make_unique<RowOrder>(filter.order,
                                              [this](const QString& guid) { return itemOf(guid); });
    CatalogueIndex index(MVThemeMgr::init()->getDisplayXML());
    const QScopedValueRollback<CatalogueIndex*> indexed(m_pIndex, &index);
    if (filter.onlyOnDisk)
        m_onDisk = guidsOnDisk();
    invalidateFilter();
    m_onDisk.reset();
    if (m_pOrder || wasSorted)
        sort(m_pOrder ? 0 : -1);
}

void MVThemeSortFilterProxyModel::sortAgain()
{
    if (m_pOrder)
        sort(0);
}

SListFilter MVThemeSortFilterProxyModel::listFilter() const
{
    return m_pFilter ? *m_pFilter : SListFilter();
}

/// Asks for the files of all rows at once, which resolves their folders only once.
QSet<QString> MVThemeSortFilterProxyModel::guidsOnDisk() const
{
    QVector<SCfg_Item*> items;
    const QAbstractItemModel* const rows = sourceModel();
    for (int row = 0; rows && row < rows->rowCount(); ++row) {
        if (SCfg_Item* const item = itemOf(rows->index(row, 0).data(UIItemRole_GUID).toString()))
            items.append(item);
    }
    const QVector<int> counts = ItemFiles::countNeeded(items);
    QSet<QString> guids;
    for (int i = 0; i < counts.size(); ++i) {
        if (counts.at(i) == 0)
            guids.insert(items.at(i)->m_qsGUID);
    }
    return guids;
}

bool MVThemeSortFilterProxyModel::isOnDisk(SCfg_Item& item) const
{
    return m_onDisk ? m_onDisk->contains(item.m_qsGUID) : !ItemFiles::needsAny(item);
}

SCfg_Item* MVThemeSortFilterProxyModel::itemOf(const QString& guid) const
{
    return m_pIndex ? m_pIndex->find(m_eKind, guid)
                    : MVThemeMgr::init()->findItemByIDFromDisplay(m_eKind, guid);
}

bool MVThemeSortFilterProxyModel::passesListFilter(const QModelIndex& row) const
{
    const QString guid = row.data(UIItemRole_GUID).toString();
    if (guid.isEmpty())
        return !m_pFilter->isNarrowing(); // "More>>"
    const bool isAnyType = m_nThemeType == allThemes || m_nThemeType == favouriteThemes;
    if ((!isAnyType && m_nThemeType != row.data(UIItemRole_ThemeType).toInt())
        || (m_pFilter->onlyOutdated && !row.data(UIItemRole_Updatable).toBool())
        || !m_pFilter->words.matches(row.data(UIItemRole_Name).toString()))
        return false;
    const bool isFavouriteAsked = m_pFilter->onlyFavourites || m_nThemeType == favouriteThemes;
    if (!isFavouriteAsked && !m_pFilter->onlyOnDisk)
        return true;
    SCfg_Item* const item = itemOf(guid);
    return item && (!isFavouriteAsked || MVThemeMgr::init()->isItemCollect(item))
        && (!m_pFilter->onlyOnDisk || isOnDisk(*item));
}

bool MVThemeSortFilterProxyModel::lessThan(const QModelIndex& left, const QModelIndex& right) const
{
    return m_pOrder ? m_pOrder->isBefore(left, right)
                    : QSortFilterProxyModel::lessThan(left, right);
}

bool MVThemeSortFilterProxyModel::filterAcceptsRow(int row, const QModelIndex& parent) const
{
    const QModelIndex index = sourceModel()->index(row, 0, parent);
    if (m_pFilter)
        return passesListFilter(index);
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
