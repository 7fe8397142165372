#include "host/HostSettingsFile.h"

#include "host/HostSettings.h"

#include <QDir>
#include <QFileInfo>
#include <QStringList>

#include <cmath>
#include <limits>

namespace {

constexpr double lowestZoom = 0.1;
constexpr double highestZoom = 16.0;
constexpr int highestRetries = 100;

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

bool HostSettingsFile::readValue(const QString& key, const QString& text, HostSettings& settings)
{
    if (key == QLatin1String("paths/resources"))
        return readPath(key, text, settings.resourcesPath);
    if (key == QLatin1String("paths/data"))
        return readPath(key, text, settings.dataLocation);
    if (key == QLatin1String("paths/appData"))
        return readPath(key, text, settings.appDataPath);
    if (key == QLatin1String("paths/testOutput"))
        return readPath(key, text, settings.testOutputDir);
    if (key == QLatin1String("paths/developerResource"))
        return readPath(key, text, settings.developerResourceRoot);
    if (key == QLatin1String("network/caFile"))
        return readPath(key, text, settings.caFile);
    if (key == QLatin1String("ui/zoomDPI"))
        return readZoom(text, settings.zoomDPI);
    if (key == QLatin1String("product/editions"))
        return readEditions(text, settings);
    if (key == QLatin1String("network/connectTimeoutMs"))
        return readMilliseconds(key, text, 1, settings.connectTimeoutMs);
    if (key == QLatin1String("network/stallTimeoutMs"))
        return readMilliseconds(key, text, 1, settings.stallTimeoutMs);
    if (key == QLatin1String("network/retryPauseMs"))
        return readMilliseconds(key, text, 0, settings.retryPauseMs);
    if (key == QLatin1String("network/retryPauseMaxMs"))
        return readMilliseconds(key, text, 0, settings.retryPauseMaxMs);
    if (key == QLatin1String("network/maxDownloadBytes")) {
        return readInteger(key, text, 1, std::numeric_limits<qint64>::max(),
                           settings.maxDownloadBytes);
    }
    if (key == QLatin1String("network/downloadRetries")) {
        qint64 retries = 0;
        if (!readInteger(key, text, 0, highestRetries, retries))
            return false;
        settings.downloadRetries = static_cast<int>(retries);
        return true;
    }
    if (key == QLatin1String("ui/skin")) {
        settings.currentSkin = text;
        return true;
    }
    if (key == QLatin1String("network/proxy")) {
        settings.proxy = text;
        return true;
    }
    return fail(QStringLiteral("unknown setting %1").arg(key));
}

bool HostSettingsFile::readPath(const QString& key, const QString& text, QString& target)
{
    if (text.isEmpty())
        return fail(QStringLiteral("%1 is empty").arg(key));
    const QDir base = QFileInfo(m_iniFile).absoluteDir();
    target = QDir::cleanPath(base.absoluteFilePath(QDir::fromNativeSeparators(text)));
    return true;
}

bool HostSettingsFile::readInteger(const QString& key, const QString& text, qint64 lowest,
                                   qint64 highest, qint64& target)
{
    bool ok = false;
    const qint64 number = text.toLongLong(&ok);
    if (!ok || number < lowest || number > highest) {
        return fail(QStringLiteral("%1 is \"%2\", but must be a whole number from %3 to %4")
                        .arg(key, text, QString::number(lowest), QString::number(highest)));
    }
    target = number;
    return true;
}

bool HostSettingsFile::readMilliseconds(const QString& key, const QString& text, int lowest,
                                        int& target)
{
    qint64 number = 0;
    if (!readInteger(key, text, lowest, std::numeric_limits<int>::max(), number))
        return false;
    target = static_cast<int>(number);
    return true;
}

bool HostSettingsFile::readZoom(const QString& text, double& target)
{
    bool ok = false;
    const double zoom = text.toDouble(&ok);
    if (!ok || !std::isfinite(zoom) || zoom < lowestZoom || zoom > highestZoom) {
        return fail(QStringLiteral("ui/zoomDPI is \"%1\", but must be a number from %2 to %3")
                        .arg(text, QString::number(lowestZoom), QString::number(highestZoom)));
    }
    target = zoom;
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
