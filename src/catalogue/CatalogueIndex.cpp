// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "catalogue/CatalogueIndex.h"

#include "records/KindTable.h"

CatalogueIndex::CatalogueIndex(const MVThemeMgr::SResourceXML& catalogue)
{
    for (const SKindInfo& kind : KindTable::all())
        m_kinds.emplace_back(*catalogue.ofKind(kind.type));
}

SCfg_Item* CatalogueIndex::find(ECfgItemType kind, const QString& guid)
{
    if (!KindTable::find(kind))
        return nullptr;
    // The vectors are const in the index only so that the search does not detach them.
    return const_cast<SCfg_Item*>(m_kinds.at(kind).findItem(guid));
}
