// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "Session.h"

#include "Arguments.h"
#include "catalogue/MVThemeMgr.h"
#include "host/AppOptions.h"
#include "host/HostSettings.h"
#include "host/ProductParam.h"

#include <QFileInfo>

bool Session::open(const Arguments& arguments)
{
    arguments.host.applyLog();
    if (!applySettings(arguments) || !checkFolders(arguments))
        return false;
    MVThemeMgr::init()->setResourceSaveRootPath(m_root);
    // A check reads the catalogue files itself; loading them here would double time and memory.
    if (arguments.command != QLatin1String("check"))
        loadCatalogue();
    return true;
}

bool Session::applySettings(const Arguments& arguments)
{
    HostSettings& settings = hostSettings();
    settings = HostSettings::recommended();
    // This tool shows themes with their dependencies, unless configured otherwise.
    settings.productParams.insert(ProductParam::hasThemes, QStringLiteral("1"));
    return arguments.host.apply(&m_error);
}

bool Session::checkFolders(const Arguments& arguments)
{
    const HostSettings& settings = hostSettings();
    // The default folder is optional: a downloaded catalogue is sufficient.
    const bool resourcesNamed = settings.resourcesPath != arguments.host.defaultResources();
    if (resourcesNamed && !QFileInfo(settings.resourcesPath).isDir())
        return fail(QStringLiteral("no such resources folder: %1").arg(settings.resourcesPath));

    m_root = arguments.host.downloadRoot();
    if (!AppOptions::instance()->ensureDirExists(m_root))
        return fail(QStringLiteral("the download root cannot be created: %1").arg(m_root));
    return true;
}

void Session::loadCatalogue()
{
    MVThemeMgr* const manager = MVThemeMgr::init();
    manager->load(false);
    if (!manager->getCfgXML().isEmpty())
        return;
    m_emptyText = QStringLiteral("the catalogue is empty: neither %1 nor %2 has items")
                      .arg(manager->Path_resource_xml(MVThemeMgr::eLoadDir_Download,
                                                      MVThemeMgr::eDirTag_Config),
                           manager->Path_resource_xml(MVThemeMgr::eLoadDir_Local,
                                                      MVThemeMgr::eDirTag_Config));
}

bool Session::fail(const QString& text)
{
    m_error = text;
    return false;
}
