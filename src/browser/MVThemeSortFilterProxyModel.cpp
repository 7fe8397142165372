// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "browser/MVThemeSortFilterProxyModel.h"

#include "browser/EUIItemRole.h"
#include "browser/ListFiles.h"
#include "browser/RowOrder.h"
#include "browser/SListFilter.h"
#include "catalogue/CatalogueIndex.h"
#include "catalogue/MVThemeMgr.h"

#include <QScopedValueRollback>
#include <QUuid>

MVThemeSortFilterProxyModel::MVThemeSortFilterProxyModel(QObject* parent)
    : QSortFilterProxyModel(parent)
{
}

MVThemeSortFilterProxyModel::~MVThemeSortFilterProxyModel() = default;

void MVThemeSortFilterProxyModel::setSourceModel(QAbstractItemModel* source)
{
    if (m_pOrder)
        m_pOrder->noteAllChanged();
    m_pFollower = std::make_unique<QObject>();
    if (source)
        followRows(*source); // before the base class, which then compares the rows
    QSortFilterProxyModel::setSourceModel(source);
}

void MVThemeSortFilterProxyModel::followRows(const QAbstractItemModel& source)
{
    using Model = QAbstractItemModel;
    const QObject* const follower = m_pFollower.get();
    connect(&source, &Model::dataChanged, follower,
            [this](const QModelIndex& first, const QModelIndex& last) {
                if (m_pOrder && first.isValid() && last.isValid())
                    m_pOrder->noteChanged(first.row(), last.row());
            });
    connect(&source, &Model::rowsInserted, follower,
            [this](const QModelIndex&, int first, int last) {
                if (m_pOrder)
                    m_pOrder->noteInserted(first, last);
            });
    connect(&source, &Model::rowsRemoved, follower,
            [this](const QModelIndex&, int first, int last) {
                if (m_pOrder)
                    m_pOrder->noteRemoved(first, last);
            });
    const auto forget = [this] {
        if (m_pOrder)
            m_pOrder->noteAllChanged();
    };
    connect(&source, &Model::rowsMoved, follower, forget);
    connect(&source, &Model::layoutChanged, follower, forget);
    connect(&source, &Model::modelReset, follower, forget);
}

void MVThemeSortFilterProxyModel::setKind(ECfgItemType kind)
{
    m_eKind = kind;
    m_pFiles.reset();
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
    const bool again = m_pFilter && *m_pFilter == filter;
    const bool usedFiles = usesFiles();
    m_pFilter = std::make_unique<SListFilter>(filter);
    if (usesFiles())
        lookAtFiles(again || !usedFiles);
    applyListFilter();
}

void MVThemeSortFilterProxyModel::applyListFilter()
{
    m_nThemeType = m_pFilter->themeType;
    CatalogueIndex index(MVThemeMgr::init()->getDisplayXML());
    const QScopedValueRollback<CatalogueIndex*> indexed(m_pIndex, &index);
    const bool wasSorted = m_pOrder != nullptr;
    if (m_pFilter->onlyOnDisk)
        m_shownBefore = shownRows();
    m_pOrder.reset(); // rows that appear need no place yet
    invalidateFilter();
    m_shownBefore.clear();
    if (m_pFilter->order != EListOrder::Published || wasSorted)
        sortBy(m_pFilter->order);
}

/// Sorts the rows by their current names, marks or sizes.
void MVThemeSortFilterProxyModel::sortBy(EListOrder order)
{
    m_pOrder.reset();
    if (order != EListOrder::Published) {
        m_pOrder = std::make_unique<RowOrder>(
            order, [this](const QString& guid) { return m_pFiles ? m_pFiles->bytesOf(guid) : 0; });
    }
    sort(m_pOrder ? 0 : -1);
}

void MVThemeSortFilterProxyModel::sortAgain()
{
    if (m_pOrder)
        sortBy(m_pFilter->order);
}

SListFilter MVThemeSortFilterProxyModel::listFilter() const
{
    return m_pFilter ? *m_pFilter : SListFilter();
}

bool MVThemeSortFilterProxyModel::usesFiles() const
{
    return m_pFilter && (m_pFilter->onlyOnDisk || m_pFilter->order == EListOrder::Size);
}

bool MVThemeSortFilterProxyModel::isLookingAtFiles() const
{
    return usesFiles() && m_pFiles && m_pFiles->isLooking();
}

void MVThemeSortFilterProxyModel::lookAtFiles(bool again)
{
    if (m_pFiles) {
        if (again)
            m_pFiles->lookAgain();
        return;
    }
    m_pFiles = std::make_unique<ListFiles>(m_eKind);
    connect(m_pFiles.get(), &ListFiles::changed, this, &MVThemeSortFilterProxyModel::followFiles);
}

/// Rows find their places when all sizes are known: they would move under the user's eyes.
void MVThemeSortFilterProxyModel::followFiles()
{
    if (!usesFiles() || (m_pFiles->isLooking() && !m_pFilter->onlyOnDisk))
        return;
    emit followingFiles();
    applyListFilter();
    emit filesFollowed();
}

QBitArray MVThemeSortFilterProxyModel::shownRows() const
{
    QBitArray shown(sourceModel() ? sourceModel()->rowCount() : 0);
    for (int row = 0; row < rowCount(); ++row)
        shown.setBit(mapToSource(index(row, 0)).row());
    return shown;
}

bool MVThemeSortFilterProxyModel::passesOnDisk(const QModelIndex& row, const QString& guid) const
{
    if (m_pFiles && m_pFiles->isKnown(guid))
        return m_pFiles->isOnDisk(guid);
    return row.row() < m_shownBefore.size() && m_shownBefore.testBit(row.row());
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
    if (m_pFilter->onlyOnDisk && !passesOnDisk(row, guid))
        return false;
    const SCfg_Item* const item = itemOf(guid);
    return item && (!isFavouriteAsked || MVThemeMgr::init()->isItemCollect(item));
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
