#include "Session.h"

#include "Arguments.h"
#include "catalogue/MVThemeMgr.h"
#include "host/AppOptions.h"
#include "host/HostSettings.h"
#include "host/LogL.h"
#include "host/ProductParam.h"

#include <QDir>
#include <QFileInfo>

#include <cstdio>

namespace {

void writeLog(const QByteArray& category, int level, const QByteArray& text)
{
    std::fprintf(stderr, "[%s %d] %s\n", category.constData(), level, text.constData());
}

void dropLog(const QByteArray&, int, const QByteArray&) { }

} // namespace

bool Session::open(const Arguments& arguments)
{
    setLogSink(arguments.verbose ? &writeLog : &dropLog);
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
    if (!arguments.settingsFile.isEmpty() && !loadHostSettings(arguments.settingsFile, &m_error))
        return false;
    if (!arguments.resources.isEmpty())
        settings.resourcesPath = QDir::cleanPath(QDir().absoluteFilePath(arguments.resources));
    if (!arguments.server.isEmpty())
        settings.productParams.insert(ProductParam::serverRoot, arguments.server);
    for (auto it = arguments.params.cbegin(); it != arguments.params.cend(); ++it)
        settings.productParams.insert(it.key(), it.value());
    return true;
}

bool Session::checkFolders(const Arguments& arguments)
{
    const HostSettings& settings = hostSettings();
    // The default folder is optional: a downloaded catalogue is sufficient.
    const bool resourcesNamed = settings.resourcesPath != HostSettings().resourcesPath;
    if (resourcesNamed && !QFileInfo(settings.resourcesPath).isDir())
        return fail(QStringLiteral("no such resources folder: %1").arg(settings.resourcesPath));

    const QString root = arguments.root.isEmpty()
        ? settings.dataLocation + QStringLiteral("/download")
        : arguments.root;
    m_root = QDir::cleanPath(QDir().absoluteFilePath(root));
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
