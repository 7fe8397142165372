// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "host/HostSettings.h"

#include "host/Skins.h"

#include <QStandardPaths>

HostSettings::HostSettings()
    : dataLocation(QStandardPaths::writableLocation(QStandardPaths::AppDataLocation))
    , appDataPath(QStandardPaths::writableLocation(QStandardPaths::AppLocalDataLocation))
    , currentSkin(QString::fromLatin1(allSkins.front().name))
{
}

HostSettings& hostSettings()
{
    // Never destroyed: the catalogue reads it when it saves favourites after main().
    static auto* const settings = new HostSettings;
    return *settings;
}
