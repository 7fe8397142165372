// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "ItemKey.h"

#include "catalogue/MVThemeMgr.h"

SCfg_Item* ItemKey::find() const
{
    MVThemeMgr* const catalogue = MVThemeMgr::init();
    SCfg_Item* const shown = catalogue->findItemByIDFromDisplay(kind, guid);
    return shown ? shown : catalogue->findItemByIDFromConfig(kind, guid);
}

QString ItemKey::name() const
{
    const SCfg_Item* const item = find();
    return item && !item->m_qsName.isEmpty() ? item->m_qsName : guid;
}
