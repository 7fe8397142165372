#pragma once

#include "catalogue/MVThemeMgr.h"

/// Whether files of the item are still to be downloaded. Looks at the disk for every file.
inline bool needsFiles(SCfg_Item* item)
{
    MVThemeMgr* const manager = MVThemeMgr::init();
    manager->ensureThemeParsed(*item);
    QVector<SFileInfo*> missing;
    manager->getNeedDownLoadFiles(item, missing);
    return !missing.isEmpty();
}
