// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "browser/RowOrder.h"

#include "browser/EUIItemRole.h"

#include <QLocale>
#include <QModelIndex>

#include <utility>

RowOrder::RowOrder(EListOrder order, Finder itemOf)
    : m_order(order)
    , m_itemOf(std::move(itemOf))
    , m_collator(QLocale())
{
    m_collator.setNumericMode(true);
    m_collator.setCaseSensitivity(Qt::CaseInsensitive);
}

bool RowOrder::isBefore(const QModelIndex& left, const QModelIndex& right) const
{
    const QString leftGuid = left.data(UIItemRole_GUID).toString();
    const QString rightGuid = right.data(UIItemRole_GUID).toString();
    if (leftGuid.isEmpty() || rightGuid.isEmpty())
        return !leftGuid.isEmpty(); // "More>>" is the last row
    switch (m_order) {
    case EListOrder::Published:
        break;
    case EListOrder::Name:
        return keyOf(leftGuid, left) < keyOf(rightGuid, right);
    case EListOrder::Newest:
        return left.data(UIItemRole_New).toBool() && !right.data(UIItemRole_New).toBool();
    case EListOrder::Size:
        return bytesOf(leftGuid) > bytesOf(rightGuid);
    }
    return left.row() < right.row();
}

QCollatorSortKey RowOrder::keyOf(const QString& guid, const QModelIndex& row) const
{
    auto found = m_keys.find(guid);
    if (found == m_keys.end())
        found = m_keys.insert(guid, m_collator.sortKey(row.data(UIItemRole_Name).toString()));
    return *found;
}

qint64 RowOrder::bytesOf(const QString& guid) const
{
    auto found = m_bytes.find(guid);
    if (found == m_bytes.end()) {
        SCfg_Item* const item = m_itemOf(guid);
        found = m_bytes.insert(guid, item ? m_sizes.of(*item).total() : 0);
    }
    return *found;
}
