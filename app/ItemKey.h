// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "records/ECfgItemType.h"

#include <QHashFunctions>
#include <QMetaType>
#include <QString>

struct SCfg_Item;

/// Identifies an item over reloads of the catalogue. A value type.
struct ItemKey
{
    ECfgItemType kind = eCfgItem_Theme;
    QString guid; ///< as in the catalogue

    bool isEmpty() const { return guid.isEmpty(); }
    /// Returns the item, first that of the lists, then a hidden one; null if there is none. GUI
    /// thread.
    SCfg_Item* find() const;
    /// Returns the item's name; without one, the GUID. GUI thread.
    QString name() const;
};

inline bool operator==(const ItemKey& left, const ItemKey& right)
{
    return left.kind == right.kind && left.guid == right.guid;
}

inline uint qHash(const ItemKey& key, uint seed = 0)
{
    return qHash(key.guid, seed) ^ static_cast<uint>(key.kind);
}

Q_DECLARE_METATYPE(ItemKey)
