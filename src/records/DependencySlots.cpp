// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "records/DependencySlots.h"

const DependencySlots::Slots& DependencySlots::all()
{
    static const Slots rows{{
        {eDependType_Text, QLatin1String("Text"), eCfgItem_Filter},
        {eDependType_Filter, QLatin1String("Filter"), eCfgItem_Filter},
        {eDependType_Element, QLatin1String("Element"), eCfgItem_Filter},
        {eDependType_Transition, QLatin1String("Transition"), eCfgItem_Transition},
        {eDependType_ImageMotion, QLatin1String("ImageMotion"), eCfgItem_Motion},
    }};
    return rows;
}

const DependencySlots::Slot* DependencySlots::find(EDependType type)
{
    const auto row = static_cast<std::size_t>(type); // a negative value becomes a large one
    return row < count ? &all().at(row) : nullptr;
}
