// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "browser/ItemBytes.h"
#include "browser/SListFilter.h"

#include <QCollator>
#include <QHash>
#include <QString>

#include <functional>

class QModelIndex;
struct SCfg_Item;

/// Compares the rows of a resource list by an order. It computes what it compares once per row;
/// create another one after items have changed. Internal to the library; GUI thread only.
class RowOrder
{
public:
    /// Returns the item with a GUID, or null.
    using Finder = std::function<SCfg_Item*(const QString& guid)>;

    RowOrder(EListOrder order, Finder itemOf);

    /// Returns whether the left row must be before the right one.
    bool isBefore(const QModelIndex& left, const QModelIndex& right) const;

private:
    QCollatorSortKey keyOf(const QString& guid, const QModelIndex& row) const;
    qint64 bytesOf(const QString& guid) const;

    EListOrder m_order;
    Finder m_itemOf;
    QCollator m_collator;
    ItemBytes m_sizes;
    mutable QHash<QString, QCollatorSortKey> m_keys; // by GUID
    mutable QHash<QString, qint64> m_bytes;          // by GUID
};
