#pragma once

#include "records/ECfgItemType.h"
#include "records/MvResourceExport.h"

#include <QLatin1String>
#include <QString>

#include <array>
#include <cstddef>

/// The file that keeps the favourites of a kind.
enum class EFavouritesFile {
    None,    ///< items of the kind cannot be favourites
    Themes,  ///< MVThemeMgr::Path_ThemeCollect()
    Filters, ///< MVThemeMgr::Path_FilterCollect()
};

/// Everything that the system knows of one kind of catalogue items.
struct SKindInfo
{
    ECfgItemType type;
    QLatin1String name;   ///< the kind's element in both catalogue files
    QLatin1String folder; ///< its folder in both halves of a tree
    bool hasThumbnail;    ///< its items are shown with a thumbnail file
    bool hasPreview;      ///< its items are shown with an animated preview
    bool hasNoneEntry;    ///< its list begins with the "none" entry, see NoneEntry.h
    bool isGrouped;       ///< its display category has a group for each theme type
    EFavouritesFile favourites;
    QLatin1String exportName; ///< in exported favourites; empty for kinds that have none
    QLatin1String definition; ///< root element of a definition that a publisher's tool writes
    bool hasDefinitionList;   ///< its folder holds a list of its definitions

    /// The name in small letters, as manifests and command lines give it.
    QString word() const { return QString(name).toLower(); }
};

/// The kinds of catalogue items, one row each: adding a kind begins here. Constant; any thread.
class MVRESOURCE_EXPORT KindTable
{
public:
    static constexpr std::size_t count = 5;
    using Rows = std::array<SKindInfo, count>;

    KindTable() = delete;

    /// Returns the rows in the order of ECfgItemType, which is that of the catalogue files.
    static const Rows& all();
    /// Returns the row of a kind; null for eCfgItem_Resource and other values outside the table.
    static const SKindInfo* find(ECfgItemType type);
    /// Returns the row of a kind that is known to be in the table.
    static const SKindInfo& of(ECfgItemType type);
};
