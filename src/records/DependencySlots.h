// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "records/ECfgItemType.h"
#include "records/EDependType.h"
#include "records/MvResourceExport.h"

#include <QLatin1String>

#include <array>
#include <cstddef>

/// The dependency slots of a theme element: their names in theme configs and manifests, and the
/// kind of the items in them. Constant; any thread.
class MVRESOURCE_EXPORT DependencySlots
{
public:
    /// One slot of a theme element.
    struct Slot
    {
        EDependType type;   ///< its index
        QLatin1String name; ///< its element in a theme's config
        ECfgItemType kind;  ///< among whose items the slot's GUID is looked up
    };
    /// Number of slots.
    static constexpr std::size_t count = 5;
    /// All slots.
    using Slots = std::array<Slot, count>;

    DependencySlots() = delete;

    /// Returns the slots in the order of EDependType.
    static const Slots& all();
    /// Returns a slot; null for a value outside EDependType.
    static const Slot* find(EDependType type);
};
