#pragma once

#include "catalogue/MVThemeMgr.h"
#include "host/HostSettings.h"

/// Returns whether files of the item are still to be downloaded. Looks at the disk for every file.
inline bool needsFiles(SCfg_Item* item)
{
    MVThemeMgr* const manager = MVThemeMgr::init();
    if (!manager->ensureThemeParsed(*item) && hostSettings().checkContent)
        return true; // the config file is damaged, so it is not known what is missing
    QVector<SFileInfo*> missing;
    manager->getNeedDownLoadFiles(item, missing);
    return !missing.isEmpty();
}
