// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "browser/MVThemeSortFilterProxyModel.h"
#include "catalogue/SearchWords.h"

/// The order of a resource list's rows. Rows that are equal by it keep the order in which they are
/// published, and "More>>" is the last row in each.
enum class EListOrder : int {
    Published, ///< as in the catalogue
    Name,      ///< by the rules of the default QLocale, digits as numbers: "Sea 9" before "Sea 10"
    Newest,    ///< those of mvThemelistview::setNew() first
    Size,      ///< the largest first: the item with all that it uses, on disk or as published
};

/// The rows that a resource list shows, and their order; see mvThemelistview::applyFilter(). A row
/// must meet all conditions. A value type.
struct SListFilter
{
    /// Every word must occur in the item's name.
    SearchWords words;
    /// The type of themes, all (999) or favourites (1), see MVThemeSortFilterProxyModel.
    int themeType = MVThemeSortFilterProxyModel::allThemes;
    bool onlyFavourites = false;
    bool onlyOnDisk = false;   ///< can be applied without a download
    bool onlyOutdated = false; ///< those of mvThemelistview::setUpdatable()
    EListOrder order = EListOrder::Published;

    /// Returns whether some items do not pass; those of a theme type count as some.
    bool isNarrowing() const
    {
        return !words.isEmpty() || themeType != MVThemeSortFilterProxyModel::allThemes
            || onlyFavourites || onlyOnDisk || onlyOutdated;
    }

    bool operator==(const SListFilter& other) const
    {
        return words == other.words && themeType == other.themeType
            && onlyFavourites == other.onlyFavourites && onlyOnDisk == other.onlyOnDisk
            && onlyOutdated == other.onlyOutdated && order == other.order;
    }
    bool operator!=(const SListFilter& other) const { return !(*this == other); }
};
