#pragma once

/// The content of an mvThemelistview, which also determines the look of its cells.
enum EUIItemType : int {
    UIItem_Themes = 0,       ///< themes in theme cells, with "More>>" at the end
    UIItem_Filters = 1,      ///< video filters in filter cells
    UIItem_FiltersLarge = 2, ///< video filters in theme cells
    UIItem_BgMaterial = 3,   ///< background materials in filter cells
    UIItem_None = 4,         ///< nothing yet
};
