// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "records/MvResourceExport.h"

/// Keeps the catalogue's items in place: while an object of this class exists,
/// MVThemeMgr::load(true) and clear() do nothing. MVThemeDownLoader holds one while it works on an
/// item; a host's own thread that uses items should do the same.
///
/// Create it on the thread that loads the catalogue, before starting the thread that needs it;
/// destroy it on any thread.
class MVRESOURCE_EXPORT CatalogueUse
{
public:
    CatalogueUse();
    ~CatalogueUse();
    CatalogueUse(const CatalogueUse&) = delete;
    CatalogueUse& operator=(const CatalogueUse&) = delete;

    /// Returns the number of these objects in the process.
    static int count();
};
