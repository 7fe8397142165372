// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

// ResourceModel: following the catalogue row by row.

#include "catalogue/MVThemeMgr.h"
#include "model/ModelEngine.h"
#include "model/ResourceModel.h"
#include "model/RowMoves.h"

#include <algorithm>
#include <utility>

namespace {

// Views take longer for many moves than for a change of the whole layout.
constexpr int maxMoves = 64;

} // namespace

ResourceModel::Rows ResourceModel::readRows() const
{
    MVThemeMgr* const catalogue = MVThemeMgr::init();
    const QStringList marked = catalogue->favourites(m_kind);
    const QSet<QString> favourites(marked.cbegin(), marked.cend());
    const QVector<SCfg_Item>& items = *catalogue->getDisplayXML().ofKind(m_kind);
    Rows rows;
    rows.reserve(items.size());
    QSet<QString> seen;
    for (const SCfg_Item& item : items) {
        if (seen.contains(item.m_qsGUID))
            continue;
        seen.insert(item.m_qsGUID);
        rows.append(
            {item.m_qsGUID, item.m_qsName, item.m_nThemeType, favourites.contains(item.m_qsGUID)});
    }
    return rows;
}

void ResourceModel::updateRows()
{
    const int before = count();
    setRows(readRows());
    if (count() != before)
        emit countChanged();
}

void ResourceModel::setRows(const Rows& next)
{
    removeGone(next);
    orderKept(next);
    insertNew(next);
    changeKept(next);
}

void ResourceModel::removeGone(const Rows& next)
{
    QSet<QString> kept;
    for (const Row& row : next)
        kept.insert(row.guid);
    for (int last = count() - 1; last >= 0; --last) {
        if (kept.contains(m_rows.at(last).guid))
            continue;
        int first = last;
        while (first > 0 && !kept.contains(m_rows.at(first - 1).guid))
            --first;
        beginRemoveRows({}, first, last);
        m_rows.remove(first, last - first + 1);
        m_rowOf.clear();
        endRemoveRows();
        last = first;
    }
}

/// Brings the rows that `next` contains, too, into its order.
void ResourceModel::orderKept(const Rows& next)
{
    QStringList order;
    QVector<int> places;
    for (const Row& row : next) {
        const int place = rowOf(row.guid);
        if (place < 0)
            continue;
        order.append(row.guid);
        places.append(place);
    }
    const QVector<bool> staying = RowMoves::staying(places);
    const auto moves = std::count(staying.cbegin(), staying.cend(), false);
    if (moves > maxMoves)
        reorderRows(order);
    else if (moves > 0)
        moveOthers(order, staying);
}

/// Moves the rows that do not stay, each behind its predecessor in `order`.
void ResourceModel::moveOthers(const QStringList& order, const QVector<bool>& staying)
{
    int target = 0; // behind the predecessor
    for (int i = 0; i < order.size(); ++i) {
        const int from = placeOf(order.at(i));
        if (staying.at(i) || target == from) {
            target = from + 1;
            continue;
        }
        beginMoveRows({}, from, from, {}, target);
        const int to = target > from ? target - 1 : target;
        m_rows.move(from, to);
        m_rowOf.clear();
        endMoveRows();
        target = to + 1;
    }
}

int ResourceModel::placeOf(const QString& guid) const
{
    const auto found = std::find_if(m_rows.cbegin(), m_rows.cend(),
                                    [&guid](const Row& row) { return row.guid == guid; });
    return static_cast<int>(found - m_rows.cbegin());
}

void ResourceModel::reorderRows(const QStringList& order)
{
    emit layoutAboutToBeChanged();
    Rows rows;
    QVector<int> places(count());
    for (const QString& guid : order) {
        const int place = rowOf(guid);
        places[place] = static_cast<int>(rows.size());
        rows.append(m_rows.at(place));
    }
    m_rows = rows;
    m_rowOf.clear();
    const QModelIndexList old = persistentIndexList();
    QModelIndexList moved;
    for (const QModelIndex& one : old)
        moved.append(index(places.at(one.row())));
    changePersistentIndexList(old, moved);
    emit layoutChanged();
}

void ResourceModel::insertNew(const Rows& next)
{
    QSet<QString> present;
    for (const Row& row : std::as_const(m_rows))
        present.insert(row.guid);
    for (int first = 0; first < next.size(); ++first) {
        if (present.contains(next.at(first).guid))
            continue;
        int last = first;
        while (last + 1 < next.size() && !present.contains(next.at(last + 1).guid))
            ++last;
        beginInsertRows({}, first, last);
        m_rows = m_rows.mid(0, first) + next.mid(first, last - first + 1) + m_rows.mid(first);
        m_rowOf.clear();
        endInsertRows();
        first = last;
    }
}

/// Takes over the names, types and marks; the rows have the order of `next` already.
void ResourceModel::changeKept(const Rows& next)
{
    const auto isSame = [](const Row& left, const Row& right) {
        return left.name == right.name && left.themeType == right.themeType
            && left.isFavourite == right.isFavourite;
    };
    for (int first = 0; first < count(); ++first) {
        int end = first;
        while (end < count() && !isSame(m_rows.at(end), next.at(end))) {
            m_rows[end] = next.at(end);
            ++end;
        }
        if (end == first)
            continue;
        emit dataChanged(index(first), index(end - 1),
                         {Qt::DisplayRole, NameRole, ThemeTypeRole, FavouriteRole});
        first = end;
    }
}
