#include "ItemIndex.h"

#include "catalogue/MVThemeMgr.h"
#include "Items.h"

#include <QUuid>

namespace {

/// A GUID as catalogues write it, from one in any case, with or without braces; empty for any other
/// text. QUuid alone would overlook what follows a GUID.
QString canonical(const QString& guid)
{
    const QUuid id(guid);
    const bool whole = guid.compare(id.toString(QUuid::WithBraces), Qt::CaseInsensitive) == 0
        || guid.compare(id.toString(QUuid::WithoutBraces), Qt::CaseInsensitive) == 0;
    return whole ? id.toString().toUpper() : QString();
}

} // namespace

ItemIndex::ItemIndex()
{
    MVThemeMgr* const manager = MVThemeMgr::init();
    for (const ECfgItemType kind : Items::allKinds()) {
        m_shown.emplace_back(Items::ofKind(manager->getDisplayXML(), kind));
        m_config.emplace_back(Items::ofKind(manager->getCfgXML(), kind));
    }
}

SCfg_Item* ItemIndex::find(const QString& guid)
{
    if (SCfg_Item* const item = findExactly(guid))
        return item;
    const QString written = canonical(guid);
    return written.isEmpty() ? nullptr : findExactly(written);
}

SCfg_Item* ItemIndex::findExactly(const QString& guid)
{
    for (std::vector<GuidIndex>* const lists : {&m_shown, &m_config}) {
        for (GuidIndex& items : *lists) {
            // The lists are const here only so that looking does not move their items.
            if (const SCfg_Item* const item = items.findItem(guid))
                return const_cast<SCfg_Item*>(item);
        }
    }
    return nullptr;
}

QString ItemIndex::nameOf(const SCfg_Item& item)
{
    const auto kind = static_cast<std::size_t>(item.m_eType);
    if (!item.m_qsName.isEmpty() || kind >= m_shown.size())
        return item.m_qsName;
    const SCfg_Item* const shown = m_shown.at(kind).findItem(item.m_qsGUID);
    return shown ? shown->m_qsName : QString();
}
