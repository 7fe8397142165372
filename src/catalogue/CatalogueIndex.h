// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "catalogue/GuidIndex.h"
#include "catalogue/MVThemeMgr.h"
#include "records/MvResourceExport.h"

#include <vector>

/// Finds many items of one catalogue file by kind and GUID: any number of searches takes time
/// linear in the catalogue.
///
/// The catalogue must outlive the index and must not change while the index is in use: call neither
/// MVThemeMgr::load(true) nor clear(). One thread at a time.
class MVRESOURCE_EXPORT CatalogueIndex
{
public:
    /// Prepares an index of `catalogue`, which it does not copy.
    explicit CatalogueIndex(const MVThemeMgr::SResourceXML& catalogue);

    /// Returns the first item of the kind with exactly that GUID, or null. Owned by the catalogue.
    SCfg_Item* find(ECfgItemType kind, const QString& guid);

private:
    std::vector<GuidIndex> m_kinds; // in the order of ECfgItemType
};
