#pragma once

#include "catalogue/GuidIndex.h"
#include "catalogue/MVThemeMgr.h"

/// Finds the items that the catalogue shows by GUID, many at a time: any number of searches stays
/// linear in the catalogue, which must not be loaded again meanwhile.
class ShownItems
{
public:
    ShownItems();

    /// The first shown item of that kind and GUID, or null. Owned by the catalogue.
    SCfg_Item* find(ECfgItemType kind, const QString& guid);

private:
    explicit ShownItems(const MVThemeMgr::SResourceXML& shown);

    GuidIndex m_filters;
    GuidIndex m_transitions;
    GuidIndex m_motions;
    GuidIndex m_themes;
    GuidIndex m_backgrounds;
};
