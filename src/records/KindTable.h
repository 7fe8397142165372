// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "records/ECfgItemType.h"
#include "records/MvResourceExport.h"

#include <QLatin1String>
#include <QString>

#include <array>
#include <cstddef>

/// The file that stores the favourites of a kind.
enum class EFavouritesFile {
    None,    ///< items of the kind cannot be favourites
    Themes,  ///< MVThemeMgr::Path_ThemeCollect()
    Filters, ///< MVThemeMgr::Path_FilterCollect()
};

/// The properties of one kind of catalogue items.
struct SKindInfo
{
    ECfgItemType type;          ///< the kind
    QLatin1String name;         ///< the kind's element in both catalogue files
    QLatin1String folder;       ///< its folder in both halves of a tree
    bool hasThumbnail;          ///< its items need a thumbnail to be shown
    bool hasPreview;            ///< its items need an animated preview to be shown
    bool hasNoneEntry;          ///< its list begins with the "none" entry, see NoneEntry.h
    bool isGrouped;             ///< its display category has a group for each theme type
    EFavouritesFile favourites; ///< where its favourites are kept
    QLatin1String exportName;   ///< in exported favourites; empty for kinds without favourites
    QLatin1String definition;   ///< root element of a generated definition
    bool hasDefinitionList;     ///< its folder contains a list of its definitions

    /// Returns the name in lower case, as used in manifests and on command lines.
    QString word() const { return QString(name).toLower(); }
};

/// The kinds of catalogue items, one row each: to add a kind, start here. Constant; any thread.
class MVRESOURCE_EXPORT KindTable
{
public:
    /// Number of kinds.
    static constexpr std::size_t count = 5;
    /// All rows.
    using Rows = std::array<SKindInfo, count>;

    KindTable() = delete;

    /// Returns the rows in the order of ECfgItemType, which is that of the catalogue files.
    static const Rows& all();
    /// Returns the row of a kind; null for eCfgItem_Resource and other values outside the table.
    static const SKindInfo* find(ECfgItemType type);
    /// Returns the row of a kind that must be in the table.
    static const SKindInfo& of(ECfgItemType type);
};
