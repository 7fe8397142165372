// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "records/SCfg_Item.h"
#include "records/SThemes_a.h"

#include <QVector>

/// Returns a theme without files of its own that uses these items, each in a scene, in order.
/// `parsed` must outlive it.
inline SCfg_Item themeUsing(const QVector<SCfg_Item*>& items, EDependType slot, SThemes_a& parsed)
{
    SCfg_Item theme;
    theme.m_eType = eCfgItem_Theme;
    for (SCfg_Item* const used : items) {
        SThemes_a::SDependArray element;
        element[slot].m_pItem = used;
        parsed.m_vecItems.append(element);
    }
    theme.m_pThemes_a = &parsed;
    return theme;
}
