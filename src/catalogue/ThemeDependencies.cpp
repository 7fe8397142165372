#include "catalogue/ThemeDependencies.h"

ThemeDependencies::ThemeDependencies(const MVThemeMgr::SResourceXML& config)
    : m_filters(config.vecFilter)
    , m_transitions(config.vecTransition)
    , m_motions(config.vecMotion)
{
}

SCfg_Item* ThemeDependencies::find(EDependType type, const QString& guid)
{
    const auto findIn = [&guid](GuidIndex& index) {
        // The vectors are const here only so that looking does not move their items.
        return const_cast<SCfg_Item*>(index.findItem(guid));
    };
    switch (type) {
    case eDependType_Text:
    case eDependType_Filter:
    case eDependType_Element:
        return findIn(m_filters);
    case eDependType_Transition:
        return findIn(m_transitions);
    case eDependType_ImageMotion:
        return findIn(m_motions);
    }
    return nullptr;
}
