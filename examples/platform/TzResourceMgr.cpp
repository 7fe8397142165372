// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "host/TzResourceMgr.h"

#include "host/HostSettings.h"

TzResourceMgr* TzResourceMgr::instance()
{
    static TzResourceMgr manager;
    return &manager;
}

QString TzResourceMgr::resourcesPath() const
{
    return hostSettings().resourcesPath;
}

QString TzResourceMgr::currentSkin() const
{
    return hostSettings().currentSkin;
}

QString TzResourceMgr::testOutputDir() const
{
    return hostSettings().testOutputDir;
}

double TzResourceMgr::getZoomDPI()
{
    return hostSettings().zoomDPI;
}
