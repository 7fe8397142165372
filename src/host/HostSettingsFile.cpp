// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "host/HostSettingsFile.h"

#include "host/HostSettings.h"

#include <QDir>
#include <QFileInfo>
#include <QStringList>

#include <algorithm>
#include <cmath>
#include <iterator>
#include <limits>

namespace {

constexpr double minZoom = 0.1;
constexpr double maxZoom = 16.0;
constexpr int maxRetries = 100;

} // namespace

HostSettingsFile::HostSettingsFile(const QString& iniFile)
    : m_iniFile(iniFile)
    , m_ini(iniFile)
{
}

bool HostSettingsFile::readInto(HostSettings& settings)
{
    if (!m_ini.read())
        return false;
    const QVector<IniReader::Entry> entries = m_ini.entries();
    for (const IniReader::Entry& entry : entries) {
        m_line = entry.line;
        if (entry.section == QLatin1String("params"))
            settings.productParams.insert(entry.key, entry.value);
        else if (!readValue(entry.section + QLatin1Char('/') + entry.key, entry.value, settings))
            return false;
    }
    return true;
}

/// Describes how each setting is read, by section and key.
struct HostSettingsFile::Setting
{
    const char* key;
    bool (*read)(HostSettingsFile& file, const QString& key, const QString& text,
                 HostSettings& settings);
};

const HostSettingsFile::Setting HostSettingsFile::all[] = {
    {"paths/resources",
     [](auto& file, auto& key, auto& text, auto& settings) {
         return file.readPath(key, text, settings.resourcesPath);
     }},
    {"paths/data",
     [](auto& file, auto& key, auto& text, auto& settings) {
         return file.readPath(key, text, settings.dataLocation);
     }},
    {"paths/appData",
     [](auto& file, auto& key, auto& text, auto& settings) {
         return file.readPath(key, text, settings.appDataPath);
     }},
    {"paths/testOutput",
     [](auto& file, auto& key, auto& text, auto& settings) {
         return file.readPath(key, text, settings.testOutputDir);
     }},
    {"paths/developerResource",
     [](auto& file, auto& key, auto& text, auto& settings) {
         return file.readPath(key, text, settings.developerResourceRoot);
     }},
    {"ui/skin",
     [](auto&, auto&, auto& text, auto& settings) {
         settings.currentSkin = text;
         return true;
     }},
    {"ui/zoomDPI",
     [](auto& file, auto&, auto& text, auto& settings) {
         return file.readZoom(text, settings.zoomDPI);
     }},
    {"ui/leftButtonOnly",
     [](auto& file, auto& key, auto& text, auto& settings) {
         return file.readSwitch(key, text, settings.leftButtonOnly);
     }},
    {"ui/lastChoiceWins",
     [](auto& file, auto& key, auto& text, auto& settings) {
         return file.readSwitch(key, text, settings.lastChoiceWins);
     }},
    {"ui/showWithoutPreviews",
     [](auto& file, auto& key, auto& text, auto& settings) {
         return file.readSwitch(key, text, settings.showWithoutPreviews);
     }},
    {"ui/cellsOnDemand",
     [](auto& file, auto& key, auto& text, auto& settings) {
         return file.readSwitch(key, text, settings.cellsOnDemand);
     }},
    {"ui/decodeInBackground",
     [](auto& file, auto& key, auto& text, auto& settings) {
         return file.readSwitch(key, text, settings.decodeInBackground);
     }},
    {"product/editions",
     [](auto& file, auto&, auto& text, auto& settings) {
         return file.readEditions(text, settings);
     }},
    {"network/connectTimeoutMs",
     [](auto& file, auto& key, auto& text, auto& settings) {
         return file.readNumber(key, text, 1, settings.connectTimeoutMs);
     }},
    {"network/stallTimeoutMs",
     [](auto& file, auto& key, auto& text, auto& settings) {
         return file.readNumber(key, text, 1, settings.stallTimeoutMs);
     }},
    {"network/versionTimeoutMs",
     [](auto& file, auto& key, auto& text, auto& settings) {
         return file.readNumber(key, text, 1, settings.versionTimeoutMs);
     }},
    {"network/checkContent",
     [](auto& file, auto& key, auto& text, auto& settings) {
         return file.readSwitch(key, text, settings.checkContent);
     }},
    {"network/conditionalRequests",
     [](auto& file, auto& key, auto& text, auto& settings) {
         return file.readSwitch(key, text, settings.conditionalRequests);
     }},
    {"network/checkSpreadSeconds",
     [](auto& file, auto& key, auto& text, auto& settings) {
         return file.readNumber(key, text, 0, settings.checkSpreadSeconds,
                                HostSettings::maxCheckSpreadSeconds);
     }},
    {"release/policy",
     [](auto& file, auto&, auto& text, auto& settings) {
         return file.readReleasePolicy(text, settings);
     }},
    {"release/keys",
     [](auto&, auto&, auto& text, auto& settings) {
         settings.releaseKeys.clear();
         const QStringList keys = text.split(QLatin1Char(','), Qt::SkipEmptyParts);
         for (const QString& key : keys)
             settings.releaseKeys.append(key.trimmed());
         return true;
     }},
    {"network/transfersSideBySide",
     [](auto& file, auto& key, auto& text, auto& settings) {
         return file.readNumber(key, text, 1, settings.transfersSideBySide,
                                HostSettings::maxTransfersSideBySide);
     }},
    {"network/downloadStepMs",
     [](auto& file, auto& key, auto& text, auto& settings) {
         return file.readNumber(key, text, 0, settings.downloadStepMs);
     }},
    {"network/maxDownloadBytes",
     [](auto& file, auto& key, auto& text, auto& settings) {
         return file.readInteger(key, text, 1, std::numeric_limits<qint64>::max(),
                                 settings.maxDownloadBytes);
     }},
    {"network/downloadRetries",
     [](auto& file, auto& key, auto& text, auto& settings) {
         return file.readNumber(key, text, 0, settings.downloadRetries, maxRetries);
     }},
    {"network/retryPauseMs",
     [](auto& file, auto& key, auto& text, auto& settings) {
         return file.readNumber(key, text, 0, settings.retryPauseMs);
     }},
    {"network/retryPauseMaxMs",
     [](auto& file, auto& key, auto& text, auto& settings) {
         return file.readNumber(key, text, 0, settings.retryPauseMaxMs);
     }},
    {"network/proxy",
     [](auto&, auto&, auto& text, auto& settings) {
         settings.proxy = text;
         return true;
     }},
    {"network/caFile",
     [](auto& file, auto& key, auto& text, auto& settings) {
         return file.readPath(key, text, settings.caFile);
     }},
};

bool HostSettingsFile::readValue(const QString& key, const QString& text, HostSettings& settings)
{
    const auto* const setting =
        std::find_if(std::cbegin(all), std::cend(all),
                     [&](const Setting& known) { return key == QLatin1String(known.key); });
    if (setting == std::cend(all))
        return fail(QStringLiteral("unknown setting %1").arg(key));
    return setting->read(*this, key, text, settings);
}

bool HostSettingsFile::readPath(const QString& key, const QString& text, QString& target)
{
    if (text.isEmpty())
        return fail(QStringLiteral("%1 is empty").arg(key));
    const QDir base = QFileInfo(m_iniFile).absoluteDir();
    target = QDir::cleanPath(base.absoluteFilePath(QDir::fromNativeSeparators(text)));
    return true;
}

bool HostSettingsFile::readInteger(const QString& key, const QString& text, qint64 min, qint64 max,
                                   qint64& target)
{
    bool ok = false;
    const qint64 number = text.toLongLong(&ok);
    if (!ok || number < min || number > max) {
        return fail(QStringLiteral("%1 is \"%2\", but must be a whole number from %3 to %4")
                        .arg(key, text, QString::number(min), QString::number(max)));
    }
    target = number;
    return true;
}

bool HostSettingsFile::readNumber(const QString& key, const QString& text, int min, int& target,
                                  int max)
{
    qint64 number = 0;
    if (!readInteger(key, text, min, max, number))
        return false;
    target = static_cast<int>(number);
    return true;
}

bool HostSettingsFile::readSwitch(const QString& key, const QString& text, bool& target)
{
    if (text != QLatin1String("true") && text != QLatin1String("false"))
        return fail(QStringLiteral("%1 is \"%2\", but must be true or false").arg(key, text));
    target = text == QLatin1String("true");
    return true;
}

bool HostSettingsFile::readZoom(const QString& text, double& target)
{
    bool ok = false;
    const double zoom = text.toDouble(&ok);
    if (!ok || !std::isfinite(zoom) || zoom < minZoom || zoom > maxZoom) {
        return fail(QStringLiteral("ui/zoomDPI is \"%1\", but must be a number from %2 to %3")
                        .arg(text, QString::number(minZoom), QString::number(maxZoom)));
    }
    target = zoom;
    return true;
}

QStringList HostSettingsFile::releasePolicies()
{
    return {QStringLiteral("ignore"), QStringLiteral("use"), QStringLiteral("require")};
}

bool HostSettingsFile::readReleasePolicy(const QString& text, HostSettings& settings)
{
    const int index = releasePolicies().indexOf(text);
    if (index < 0) {
        return fail(QStringLiteral("release/policy is \"%1\", but must be %2")
                        .arg(text, releasePolicies().join(QStringLiteral(" or "))));
    }
    settings.releasePolicy = static_cast<EReleasePolicy>(index);
    return true;
}

bool HostSettingsFile::readEditions(const QString& text, HostSettings& settings)
{
    QSet<int> editions;
    const QStringList parts = text.split(QLatin1Char(','), Qt::SkipEmptyParts);
    for (const QString& part : parts) {
        qint64 edition = 0;
        if (!readInteger(QStringLiteral("product/editions"), part.trimmed(), 1, 5, edition))
            return false;
        editions.insert(static_cast<int>(edition));
    }
    settings.partnerEditions = editions;
    return true;
}
