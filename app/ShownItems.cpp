#include "ShownItems.h"

ShownItems::ShownItems()
    : ShownItems(MVThemeMgr::init()->getDisplayXML())
{
}

ShownItems::ShownItems(const MVThemeMgr::SResourceXML& shown)
    : m_filters(shown.vecFilter)
    , m_transitions(shown.vecTransition)
    , m_motions(shown.vecMotion)
    , m_themes(shown.vecTheme)
    , m_backgrounds(shown.vecBgMaterial)
{
}

SCfg_Item* ShownItems::find(ECfgItemType kind, const QString& guid)
{
    const auto findIn = [&guid](GuidIndex& index) {
        // The lists are const here only so that looking does not move their items.
        return const_cast<SCfg_Item*>(index.findItem(guid));
    };
    switch (kind) {
    case eCfgItem_Filter:
        return findIn(m_filters);
    case eCfgItem_Transition:
        return findIn(m_transitions);
    case eCfgItem_Motion:
        return findIn(m_motions);
    case eCfgItem_Theme:
        return findIn(m_themes);
    case eCfgItem_BgMaterial:
        return findIn(m_backgrounds);
    case eCfgItem_Resource:
        break;
    }
    return nullptr;
}
