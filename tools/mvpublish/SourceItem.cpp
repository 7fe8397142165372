// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "SourceItem.h"

QStringList SourceItem::uses() const
{
    QStringList guids;
    const auto add = [&guids](const SourceSlots& part) {
        for (const SourceUse& use : part)
            guids.append(use.item);
    };
    for (const SourceSlots& scene : scenes)
        add(scene);
    for (const SourceSlots* part : {&start, &end, &mask})
        add(*part);
    return guids;
}
