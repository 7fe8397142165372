#pragma once

#include "catalogue/CatalogueIndex.h"

/// Finds the catalogue's items by GUID, for commands that look for many: any number of searches
/// stays linear in the catalogue, which must not be loaded again meanwhile.
class ItemIndex
{
public:
    ItemIndex();

    /// The item with that GUID, shown ones first, or null. Braces may be missing, case may differ.
    /// Owned by the catalogue.
    SCfg_Item* find(const QString& guid);

    /// The item's display name; items of the config catalogue have it from their shown twin, if
    /// any.
    QString nameOf(const SCfg_Item& item);

private:
    SCfg_Item* findExactly(const QString& guid);

    CatalogueIndex m_shown;
    CatalogueIndex m_config;
};
