// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "host/HostSettings.h"

#include "host/HostSettingsFile.h"
#include "host/Immortal.h"
#include "host/Skins.h"

#include <QStandardPaths>

HostSettings::HostSettings()
    : resourcesPath(QStandardPaths::writableLocation(QStandardPaths::AppDataLocation)
                    + QStringLiteral("/resources"))
    , dataLocation(QStandardPaths::writableLocation(QStandardPaths::AppDataLocation))
    , appDataPath(QStandardPaths::writableLocation(QStandardPaths::AppLocalDataLocation))
    , testOutputDir(resourcesPath)
    , currentSkin(QString::fromLatin1(allSkins.front().name))
{
}

HostSettings HostSettings::recommended()
{
    HostSettings settings;
    settings.leftButtonOnly = true;
    settings.lastChoiceWins = true;
    settings.cellsOnDemand = true;
    settings.decodeInBackground = true;
    settings.checkContent = true;
    settings.showWithoutPreviews = true;
    settings.conditionalRequests = true;
    settings.releasePolicy = eRelease_Use;
    settings.transfersSideBySide = 6;
    settings.downloadStepMs = 0;
    return settings;
}

HostSettings& hostSettings()
{
    static Immortal<HostSettings> settings;
    return *settings;
}

bool loadHostSettings(const QString& iniFile, QString* error)
{
    HostSettings loaded = hostSettings();
    HostSettingsFile file(iniFile);
    if (!file.readInto(loaded)) {
        if (error)
            *error = file.errorText();
        return false;
    }
    hostSettings() = loaded;
    return true;
}
