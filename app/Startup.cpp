#include "Startup.h"

#include "catalogue/MVThemeMgr.h"
#include "CommandLine.h"
#include "host/AppOptions.h"
#include "host/HostSettings.h"
#include "host/LogL.h"
#include "host/ProductParam.h"

#include <QDir>

#include <cstdio>

namespace {

void writeLog(const QByteArray& category, int level, const QByteArray& text)
{
    std::fprintf(stderr, "[%s %d] %s\n", category.constData(), level, text.constData());
}

void dropLog(const QByteArray&, int, const QByteArray&) { }

} // namespace

void Startup::applyDefaults(const CommandLine& commandLine)
{
    setLogSink(commandLine.verbose ? &writeLog : &dropLog);
    HostSettings& settings = hostSettings();
    settings = HostSettings::recommended();
    for (const QLatin1String shown : {ProductParam::hasThemes, ProductParam::hasBackgrounds})
        settings.productParams.insert(QLatin1String(shown), QStringLiteral("1"));
}

bool Startup::readSettings(const CommandLine& commandLine)
{
    HostSettings& settings = hostSettings();
    if (!commandLine.settingsFile.isEmpty()
        && !loadHostSettings(commandLine.settingsFile, &m_error))
        return false;
    if (!commandLine.resources.isEmpty())
        settings.resourcesPath = QDir::cleanPath(QDir().absoluteFilePath(commandLine.resources));
    if (!commandLine.server.isEmpty())
        settings.productParams.insert(ProductParam::serverRoot, commandLine.server);

    const QString root = commandLine.root.isEmpty()
        ? settings.dataLocation + QStringLiteral("/download")
        : commandLine.root;
    m_root = QDir::cleanPath(QDir().absoluteFilePath(root));
    return true;
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
