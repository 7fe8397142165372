#include "support/TestMain.h"

#include "host/HostSettings.h"
#include "host/LogL.h"

#include <QDir>
#include <QTemporaryDir>

namespace {

QString homePath;

void pointInto(const char* variable, const QString& folder)
{
    QDir().mkpath(folder);
    qputenv(variable, QFile::encodeName(folder));
}

} // namespace

TestHome::TestHome()
{
    // Constructed before the catalogue, so removed after the catalogue has saved its favourites.
    static const QTemporaryDir dir;
    if (!dir.isValid())
        qFatal("no temporary folder: %s", qPrintable(dir.errorString()));
    homePath = dir.path();
    pointInto("HOME", homePath + QStringLiteral("/home"));
    pointInto("XDG_CONFIG_HOME", homePath + QStringLiteral("/home/.config"));
    pointInto("XDG_CACHE_HOME", homePath + QStringLiteral("/home/.cache"));
    pointInto("XDG_DATA_HOME", homePath + QStringLiteral("/home/.local/share"));
    pointInto("TMPDIR", homePath + QStringLiteral("/tmp"));
    for (const char* proxy : {"http_proxy", "https_proxy", "all_proxy", "no_proxy", "HTTPS_PROXY",
                              "ALL_PROXY", "NO_PROXY"})
        qunsetenv(proxy);

    HostSettings& settings = hostSettings();
    settings.resourcesPath = homePath + QStringLiteral("/installed");
    settings.dataLocation = homePath + QStringLiteral("/data");
    settings.appDataPath = homePath + QStringLiteral("/appdata");
    settings.testOutputDir = homePath + QStringLiteral("/testoutput");
    setLogSink([](const QByteArray&, int, const QByteArray&) {});
}

QString TestHome::path()
{
    return homePath;
}
