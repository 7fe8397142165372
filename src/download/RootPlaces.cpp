// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "download/RootPlaces.h"

#include "catalogue/MVThemeMgr.h"

#include <QDir>
#include <QFileInfo>

QString RootPlaces::root()
{
    return QDir::cleanPath(QFileInfo(MVThemeMgr::init()->saveResourcePath()).path());
}

QString RootPlaces::catalogueFolder()
{
    const QString version =
        MVThemeMgr::init()->Path_resource_version_xml(MVThemeMgr::eLoadDir_Download);
    return QFileInfo(version).path();
}

QString RootPlaces::arrivals()
{
    return catalogueFolder() + QStringLiteral("/updates/");
}

QString RootPlaces::removed()
{
    return catalogueFolder() + QStringLiteral("/removed/");
}

QString RootPlaces::updatesLock()
{
    return catalogueFolder() + QStringLiteral("/updates.lock");
}
