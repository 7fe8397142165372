#include "Startup.h"

#include "catalogue/MVThemeMgr.h"
#include "CommandLine.h"
#include "DemoWorld.h"
#include "host/AppOptions.h"
#include "host/HostSettings.h"
#include "host/LogL.h"
#include "host/ProductParam.h"

#include <QDir>
#include <QStandardPaths>

#include <cstdio>

namespace {

void writeLog(const QByteArray& category, int level, const QByteArray& text)
{
    std::fprintf(stderr, "[%s %d] %s\n", category.constData(), level, text.constData());
}

void dropLog(const QByteArray&, int, const QByteArray&) { }

} // namespace

Startup::Startup() = default;
Startup::~Startup() = default;

bool Startup::readSettings(const CommandLine& commandLine)
{
    setLogSink(commandLine.verbose ? &writeLog : &dropLog);
    HostSettings& settings = hostSettings();
    settings = HostSettings::recommended();
    for (const QLatin1String shown : {ProductParam::hasThemes, ProductParam::hasBackgrounds})
        settings.productParams.insert(QLatin1String(shown), QStringLiteral("1"));
    if (commandLine.demo) {
        m_demo = std::make_unique<DemoWorld>();
        if (!m_demo->start())
            return fail(m_demo->errorText());
        m_demo->describe(settings);
    }
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
    if (!AppOptions::instance()->ensureDirExists(m_root))
        return fail(QStringLiteral("the download root cannot be created: %1").arg(m_root));
    MVThemeMgr* const catalogue = MVThemeMgr::init();
    catalogue->setResourceSaveRootPath(m_root);
    catalogue->load(false);
    return true;
}

QString Startup::preferencesFile() const
{
    if (m_demo)
        return m_demo->folder() + QStringLiteral("/preferences.json");
    return QStandardPaths::writableLocation(QStandardPaths::AppConfigLocation)
        + QStringLiteral("/preferences.json");
}

bool Startup::fail(const QString& text)
{
    m_error = text;
    return false;
}
