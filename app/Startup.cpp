// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "Startup.h"

#include "catalogue/MVThemeMgr.h"
#include "CommandLine.h"
#include "host/AppOptions.h"
#include "host/HostSettings.h"
#include "host/ProductParam.h"
#include "Preferences.h"

#include <QLatin1String>

void Startup::applyDefaults(const CommandLine& commandLine)
{
    commandLine.host.applyLog();
    HostSettings& settings = hostSettings();
    settings = HostSettings::recommended();
    for (const QLatin1String shown : {ProductParam::hasThemes, ProductParam::hasBackgrounds})
        settings.productParams.insert(QLatin1String(shown), QStringLiteral("1"));
}

bool Startup::readSettings(const CommandLine& commandLine)
{
    if (!commandLine.host.apply(&m_error))
        return false;
    m_root = commandLine.host.downloadRoot();
    return true;
}

void Startup::takePreferences(const Preferences& preferences, const CommandLine& commandLine)
{
    HostSettings& settings = hostSettings();
    if (commandLine.host.server.isEmpty() && !preferences.server().isEmpty())
        settings.productParams.insert(ProductParam::serverRoot, preferences.server());
    if (preferences.connections() > 0)
        settings.transfersSideBySide = preferences.connections();
    const QString folder = preferences.downloadFolder();
    if (!commandLine.host.root.isEmpty() || folder.isEmpty())
        return;
    // Perhaps on a disk that is not there now.
    if (AppOptions::instance()->ensureDirExists(folder))
        m_root = folder;
    else
        m_unavailable = folder;
}

bool Startup::openCatalogue(const QString& skin)
{
    hostSettings().currentSkin = skin;
    if (!AppOptions::instance()->ensureDirExists(m_root)) {
        m_error = QStringLiteral("the download root cannot be created: %1").arg(m_root);
        return false;
    }
    MVThemeMgr* const catalogue = MVThemeMgr::init();
    catalogue->setResourceSaveRootPath(m_root);
    catalogue->load(false);
    return true;
}
