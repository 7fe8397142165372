#pragma once

#include "records/MvResourceExport.h"

/// Keeps the items of the catalogue where they are: while an object of this class exists,
/// MVThemeMgr::load(true) and clear() do nothing. MVThemeDownLoader holds one while it works on an
/// item; a host's own thread that uses items holds one likewise.
///
/// Make it on the thread that loads the catalogue, before the thread that needs it starts; destroy
/// it on any thread.
class MVRESOURCE_EXPORT CatalogueUse
{
public:
    CatalogueUse();
    ~CatalogueUse();
    CatalogueUse(const CatalogueUse&) = delete;
    CatalogueUse& operator=(const CatalogueUse&) = delete;

    /// Returns how many objects exist in this process.
    static int count();
};
