// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "browser/SListFilter.h"

#include <QCollator>
#include <QString>
#include <QtGlobal>

#include <algorithm>
#include <functional>
#include <optional>
#include <vector>

class QModelIndex;

/// Compares the rows of a resource list by an order. It looks at each row once, until it is told
/// that the row has changed. Internal to the library; GUI thread only.
class RowOrder
{
public:
    /// Returns the size of the item with a GUID.
    using Sizes = std::function<qint64(const QString& guid)>;

    RowOrder(EListOrder order, Sizes bytesOf);

    /// Returns whether the left row must be before the right one.
    bool isBefore(const QModelIndex& left, const QModelIndex& right) const;

    /// Look at these rows again.
    void noteChanged(int first, int last);
    void noteAllChanged() { m_keys.clear(); }
    /// Follow rows that have come or gone.
    void noteInserted(int first, int last);
    void noteRemoved(int first, int last);

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
    int known(int row) const { return std::min(row, static_cast<int>(m_keys.size())); }

    EListOrder m_order;
    Sizes m_bytesOf;
    QCollator m_collator;
    mutable std::vector<Key> m_keys; // by row
};
