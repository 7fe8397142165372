// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "records/KindTable.h"

#include <QtGlobal>

const KindTable::Rows& KindTable::all()
{
    const auto text = [](const char* latin1) { return QLatin1String(latin1); };
    static const Rows rows{{
        {eCfgItem_Filter, text("Filter"), text("VideoFilters"), true, false, true, false,
         EFavouritesFile::Filters, text("filter"), text("VideoFilter"), true},
        {eCfgItem_Transition, text("Transition"), text("Transitions"), false, false, false, false,
         EFavouritesFile::None, text(""), text("Transition"), true},
        {eCfgItem_Motion, text("Motion"), text("Motions"), false, false, false, false,
         EFavouritesFile::None, text(""), text("Motion"), true},
        {eCfgItem_Theme, text("Theme"), text("Themes"), true, true, false, true,
         EFavouritesFile::Themes, text("theme"), text("Theme"), false},
        {eCfgItem_BgMaterial, text("BgMaterial"), text("BgMaterial"), true, false, true, false,
         EFavouritesFile::Filters, text("background"), text("BgMaterial"), false},
    }};
    return rows;
}

const SKindInfo* KindTable::find(ECfgItemType type)
{
    const auto row = static_cast<std::size_t>(type); // a negative value becomes a large one
    return row < count ? &all().at(row) : nullptr;
}

const SKindInfo& KindTable::of(ECfgItemType type)
{
    const SKindInfo* const row = find(type);
    Q_ASSERT(row);
    return *row;
}
