// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "catalogue/MVThemeMgr.h"
#include "records/ECfgItemType.h"

#include <QHashFunctions>
#include <QString>

struct SCfg_Item;

/// The identity of a catalogue item, which outlives a reload of the catalogue. A value type,
/// internal to the library.
struct ResourceKey
{
    ECfgItemType kind = eCfgItem_Filter;
    QString guid;

    /// Returns the shown item; null if the catalogue does not contain it. GUI thread only.
    SCfg_Item* find() const { return MVThemeMgr::init()->findItemByIDFromDisplay(kind, guid); }

    bool operator==(const ResourceKey& other) const
    {
        return kind == other.kind && guid == other.guid;
    }
};

inline auto qHash(const ResourceKey& key)
{
    return qHash(key.guid) ^ static_cast<decltype(qHash(key.guid))>(key.kind);
}
