// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "support/TestMain.h"

#include "host/HostSettings.h"
#include "host/LogL.h"
#include "support/TestFonts.h"
#include "support/TestIcons.h"

#include <QDir>
#include <QTemporaryDir>

namespace {

QString homePath;

void pointInto(const char* variable, const QString& folder)
{
    QDir().mkpath(folder);
    qputenv(variable, QFile::encodeName(folder));
}

/// Sets locale, time zone, scale and style, which must not depend on the machine.
void settleSurroundings()
{
    for (const char* variable :
         {"LANGUAGE", "QT_SCALE_FACTOR", "QT_SCREEN_SCALE_FACTORS", "QT_AUTO_SCREEN_SCALE_FACTOR",
          "QT_ENABLE_HIGHDPI_SCALING", "QT_SCALE_FACTOR_ROUNDING_POLICY", "QT_FONT_DPI",
          "QT_USE_PHYSICAL_DPI", "QT_STYLE_OVERRIDE", "QT_QPA_PLATFORMTHEME", "XDG_CURRENT_DESKTOP",
          "XDG_SESSION_DESKTOP", "DESKTOP_SESSION", "KDE_FULL_SESSION", "GNOME_DESKTOP_SESSION_ID"})
        qunsetenv(variable);
    qputenv("LC_ALL", "C.UTF-8");
    qputenv("LANG", "C.UTF-8");
    qputenv("TZ", "UTC");
    qputenv("GOGC", "400"); // rclone never lives long enough to need memory back
    // Must happen now: the first file name makes Qt fix the encoding of file names, before there is
    // an application.
    std::setlocale(LC_ALL, "");
}

} // namespace

TestHome::TestHome()
{
    settleSurroundings();
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
    TestFonts::useOnly(homePath);
    TestIcons::hide(homePath + QStringLiteral("/home"));

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
