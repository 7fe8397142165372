// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "records/ECfgItemType.h"

/// The content of an mvThemelistview, which also determines the look of its cells.
enum EUIItemType : int {
    UIItem_Themes = 0,       ///< themes in theme cells, with "More>>" at the end
    UIItem_Filters = 1,      ///< video filters in filter cells
    UIItem_FiltersLarge = 2, ///< video filters in theme cells
    UIItem_BgMaterial = 3,   ///< background materials in filter cells
    UIItem_None = 4,         ///< nothing yet
};

/// Returns the kind of the items that a list shows; eCfgItem_Resource for one that shows nothing.
constexpr ECfgItemType kindShownBy(EUIItemType type)
{
    switch (type) {
    case UIItem_Themes:
        return eCfgItem_Theme;
    case UIItem_Filters:
    case UIItem_FiltersLarge:
        return eCfgItem_Filter;
    case UIItem_BgMaterial:
        return eCfgItem_BgMaterial;
    case UIItem_None:
        break;
    }
    return eCfgItem_Resource;
}

/// Returns whether a list has filter cells, the smaller ones.
constexpr bool hasFilterCells(EUIItemType type)
{
    return type == UIItem_Filters || type == UIItem_BgMaterial;
}
