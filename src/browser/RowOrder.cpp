// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "browser/RowOrder.h"

#include "browser/EUIItemRole.h"

#include <QLocale>
#include <QModelIndex>

#include <cstddef>
#include <utility>

RowOrder::RowOrder(EListOrder order, Sizes bytesOf)
    : m_order(order)
    , m_bytesOf(std::move(bytesOf))
    , m_collator(QLocale())
{
    m_collator.setNumericMode(true);
    m_collator.setCaseSensitivity(Qt::CaseInsensitive);
}

bool RowOrder::isBefore(const QModelIndex& left, const QModelIndex& right) const
{
    read(left);
    read(right);
    const Key& leftKey = m_keys[static_cast<std::size_t>(left.row())];
    const Key& rightKey = m_keys[static_cast<std::size_t>(right.row())];
    if (!leftKey.hasItem || !rightKey.hasItem)
        return leftKey.hasItem; // "More>>" is the last row
    switch (m_order) {
    case EListOrder::Published:
        break;
    case EListOrder::Name:
        if (const int order = compareNames(leftKey, rightKey); order != 0)
            return order < 0;
        break;
    case EListOrder::Newest:
        if (leftKey.isNew != rightKey.isNew)
            return leftKey.isNew;
        break;
    case EListOrder::Size:
        if (leftKey.bytes != rightKey.bytes)
            return leftKey.bytes > rightKey.bytes;
        break;
    }
    return left.row() < right.row();
}

void RowOrder::noteChanged(int first, int last)
{
    std::fill(m_keys.begin() + known(first), m_keys.begin() + known(last + 1), Key());
}

void RowOrder::noteInserted(int first, int last)
{
    const int rows = last - first + 1;
    if (first < static_cast<int>(m_keys.size())) // the others have not been looked at
        m_keys.insert(m_keys.begin() + first, static_cast<std::size_t>(rows), Key());
}

void RowOrder::noteRemoved(int first, int last)
{
    m_keys.erase(m_keys.begin() + known(first), m_keys.begin() + known(last + 1));
}

int RowOrder::compareNames(const Key& left, const Key& right)
{
    return left.name && right.name ? left.name->compare(*right.name) : 0;
}

void RowOrder::read(const QModelIndex& row) const
{
    const auto number = static_cast<std::size_t>(row.row());
    if (m_keys.size() <= number)
        m_keys.resize(static_cast<std::size_t>(row.model()->rowCount()));
    Key& key = m_keys[number];
    if (std::exchange(key.isRead, true))
        return;
    const QString guid = row.data(UIItemRole_GUID).toString();
    key.hasItem = !guid.isEmpty();
    if (m_order == EListOrder::Name) {
        const QString name = row.data(UIItemRole_Name).toString();
        // Windows has no key for an empty text, and Qt warns of it.
        key.name = m_collator.sortKey(name.isEmpty() ? QStringLiteral(" ") : name);
    } else if (m_order == EListOrder::Newest) {
        key.isNew = row.data(UIItemRole_New).toBool();
    } else if (m_order == EListOrder::Size) {
        key.bytes = m_bytesOf(guid);
    }
}
