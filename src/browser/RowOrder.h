// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "browser/SListFilter.h"

#include <QCollator>
#include <QString>
#include <QtGlobal>

#include <functional>
#include <optional>
#include <vector>

class QModelIndex;

/// Compares the rows of a resource list by an order. It looks at each row once; create another one
/// after rows have changed. Internal to the library; GUI thread only.
class RowOrder
{
public:
    /// Returns the size of the item with a GUID.
    using Sizes = std::function<qint64(const QString& guid)>;

    RowOrder(EListOrder order, Sizes bytesOf);

    /// Returns whether the left row must be before the right one.
    bool isBefore(const QModelIndex& left, const QModelIndex& right) const;

private:
    struct Key
    {
        bool isRead = false;
        bool hasItem = false; // "More>>" has none
        bool isNew = false;
        qint64 bytes = 0;
        std::optional<QCollatorSortKey> name;
    };

    static int compareNames(const Key& left, const Key& right);
    void read(const QModelIndex& row) const;

    EListOrder m_order;
    Sizes m_bytesOf;
    QCollator m_collator;
    mutable std::vector<Key> m_keys; // by row
};
