// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "browser/ItemBytes.h"

#include "catalogue/ItemFiles.h"
#include "catalogue/MVThemeMgr.h"
#include "host/SPublishedContent.h"
#include "records/SCfg_Item.h"

#include <QSet>
#include <QString>

ItemBytes::ItemBytes()
    : m_states(FileStates::Depth::Quick)
{
}

ItemBytes::Size ItemBytes::of(SCfg_Item& item) const
{
    MVThemeMgr::init()->ensureThemeParsed(item);
    const QSet<QString> missing = ItemFiles::missingOf(item).paths;
    const ItemFiles files(item);
    Size size;
    for (const ItemFiles::Entry& entry : files.entries()) {
        size.onDisk += entry.sizeBytes;
        if (entry.isPresent || !missing.contains(entry.path))
            continue;
        const SPublishedContent published = m_states.publishedOf(entry);
        size.toFetch += published.m_sizeBytes;
        const bool isUnread =
            entry.role == ItemFiles::Role::Config && entry.item->m_eType == eCfgItem_Theme;
        size.isKnown = size.isKnown && published.isKnown() && !isUnread;
    }
    return size;
}
