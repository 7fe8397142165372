// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "DesktopMotion.h"

#include <QProcess>
#include <QSettings>
#include <QStandardPaths>
#include <QStringList>

#include <algorithm>

namespace {

QString configFile(const char* name)
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation)
        + QLatin1Char('/') + QLatin1String(name);
}

bool isOffInGtk()
{
    for (const char* name : {"gtk-3.0/settings.ini", "gtk-4.0/settings.ini"}) {
        const QSettings file(configFile(name), QSettings::IniFormat);
        const QVariant value = file.value(QStringLiteral("Settings/gtk-enable-animations"));
        if (value.isValid() && !value.toBool())
            return true;
    }
    return false;
}

bool isOffInKde()
{
    const QSettings file(configFile("kdeglobals"), QSettings::IniFormat);
    const QVariant factor = file.value(QStringLiteral("KDE/AnimationDurationFactor"));
    bool isNumber = false;
    return factor.toDouble(&isNumber) <= 0 && isNumber;
}

bool isOffInGnome()
{
    const QString desktop = qEnvironmentVariable("XDG_CURRENT_DESKTOP");
    const QStringList family{QStringLiteral("GNOME"), QStringLiteral("Unity"),
                             QStringLiteral("Budgie"), QStringLiteral("Pantheon")};
    const bool isGnome = std::any_of(family.cbegin(), family.cend(), [&](const QString& name) {
        return desktop.contains(name, Qt::CaseInsensitive);
    });
    if (!isGnome)
        return false;
    constexpr int maxWaitMs = 500;
    QProcess settings;
    settings.start(QStringLiteral("gsettings"),
                   {QStringLiteral("get"), QStringLiteral("org.gnome.desktop.interface"),
                    QStringLiteral("enable-animations")});
    return settings.waitForFinished(maxWaitMs) && settings.readAll().trimmed() == "false";
}

} // namespace

bool DesktopMotion::isReduced()
{
    static const bool isReduced = isOffInGtk() || isOffInKde() || isOffInGnome();
    return isReduced;
}
