// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "records/KindTable.h"
#include "records/SCfg_Item.h"

#include <QLatin1String>

/// GUID of the built-in "no filter" or "no background" entry at the head of the filter and
/// background-material lists. It occurs in no config catalogue and needs no files.
constexpr QLatin1String noneEntryGuid("{25DA2554-DB68-4026-ACE1-3EDDA71DA6D4}", 38);

/// Returns whether the item is that entry. Only filters and background materials have one.
inline bool isNoneEntry(const SCfg_Item& item)
{
    const SKindInfo* const kind = KindTable::find(item.m_eType);
    return kind && kind->hasNoneEntry && item.m_qsGUID == noneEntryGuid;
}
