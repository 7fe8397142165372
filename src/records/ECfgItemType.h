// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

/// Kinds of catalogue items. The values index the vectors of a catalogue and appear in log lines;
/// MVThemeMgr::getCfgItemTypeStr returns the name used in the catalogue files.
enum ECfgItemType : int {
    eCfgItem_Filter = 0,     ///< video filter; folder "VideoFilters"
    eCfgItem_Transition = 1, ///< transition; folder "Transitions"
    eCfgItem_Motion = 2,     ///< motion; folder "Motions"
    eCfgItem_Theme = 3,      ///< theme; folder "Themes"
    eCfgItem_BgMaterial = 4, ///< background material; folder "BgMaterial"
    eCfgItem_Resource = 5,   ///< a resource file of an item; not a kind, no folder
};
