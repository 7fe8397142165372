#pragma once

#include "catalogue/GuidIndex.h"
#include "catalogue/MVThemeMgr.h"

/// Finds the items of the config catalogue that themes use. One object serves all themes that are
/// read at a time, so that reading stays linear in themes and catalogue. Internal to the library;
/// the catalogue must not change while it is in use, one thread at a time.
class ThemeDependencies
{
public:
    explicit ThemeDependencies(const MVThemeMgr::SResourceXML& config);

    static bool isSlot(EDependType type)
    {
        return type >= eDependType_Text && type <= eDependType_ImageMotion;
    }

    /// The first item of the kind that the slot names its items in, or null. Owned by the
    /// catalogue.
    SCfg_Item* find(EDependType type, const QString& guid);

private:
    GuidIndex m_filters;
    GuidIndex m_transitions;
    GuidIndex m_motions;
};
