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
    struct Slot
    {
        EDependType type;
        QLatin1String name;
        ECfgItemType kind; ///< among whose items the slot's GUID is looked up
    };
    static constexpr std::size_t count = 5;
    using Slots = std::array<Slot, count>;

    DependencySlots() = delete;

    /// Returns the slots in the order of EDependType.
    static const Slots& all();
    /// Returns a slot; null for a value outside EDependType.
    static const Slot* find(EDependType type);
};
