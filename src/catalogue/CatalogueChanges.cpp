// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "catalogue/CatalogueChanges.h"

#include "host/Immortal.h"

CatalogueChanges* CatalogueChanges::instance()
{
    static Immortal<CatalogueChanges> changes; // the catalogue is cleared after main(), too
    return &*changes;
}
