// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

// Reads a settings file.

#include "FuzzTarget.h"
#include "host/HostSettings.h"
#include "Require.h"
#include "support/CatalogueFiles.h"
#include "support/TestMain.h"
#include "WriteGuard.h"

#include <algorithm>

namespace {

/// Quotes a value as in a settings file.
QString quoted(QString value)
{
    value.replace(QLatin1Char('\\'), QLatin1String("\\\\"));
    return QLatin1Char('"') + value.replace(QLatin1Char('"'), QLatin1String("\\\""))
        + QLatin1Char('"');
}

QString line(const char* key, const QString& value)
{
    return QString::fromLatin1(key) + QStringLiteral(" = ") + quoted(value) + QLatin1Char('\n');
}

QString line(const char* key, qint64 value)
{
    return line(key, QString::number(value));
}

QString line(const char* key, bool value)
{
    return line(key, value ? QStringLiteral("true") : QStringLiteral("false"));
}

QString editions(const QSet<int>& numbers)
{
    QStringList texts;
    for (const int number : numbers)
        texts.append(QString::number(number));
    texts.sort();
    return texts.join(QLatin1Char(','));
}

/// Writes the settings to a file that contains all of them.
QByteArray written(const HostSettings& settings)
{
    constexpr int exact = 17; // enough digits to distinguish any two numbers
    QString text = QStringLiteral("[paths]\n") + line("resources", settings.resourcesPath)
        + line("data", settings.dataLocation) + line("appData", settings.appDataPath)
        + line("testOutput", settings.testOutputDir);
    if (!settings.developerResourceRoot.isEmpty())
        text += line("developerResource", settings.developerResourceRoot);
    text += QStringLiteral("[ui]\n") + line("skin", settings.currentSkin)
        + line("zoomDPI", QString::number(settings.zoomDPI, 'g', exact))
        + line("leftButtonOnly", settings.leftButtonOnly)
        + line("lastChoiceWins", settings.lastChoiceWins)
        + line("cellsOnDemand", settings.cellsOnDemand)
        + line("showWithoutPreviews", settings.showWithoutPreviews)
        + line("decodeInBackground", settings.decodeInBackground) + QStringLiteral("[product]\n")
        + line("editions", editions(settings.partnerEditions)) + QStringLiteral("[network]\n")
        + line("connectTimeoutMs", qint64{settings.connectTimeoutMs})
        + line("stallTimeoutMs", qint64{settings.stallTimeoutMs})
        + line("maxDownloadBytes", settings.maxDownloadBytes)
        + line("downloadRetries", qint64{settings.downloadRetries})
        + line("retryPauseMs", qint64{settings.retryPauseMs})
        + line("retryPauseMaxMs", qint64{settings.retryPauseMaxMs})
        + line("conditionalRequests", settings.conditionalRequests)
        + line("transfersSideBySide", qint64{settings.transfersSideBySide})
        + line("downloadStepMs", qint64{settings.downloadStepMs})
        + line("checkSpreadSeconds", qint64{settings.checkSpreadSeconds})
        + line("proxy", settings.proxy);
    if (!settings.caFile.isEmpty())
        text += line("caFile", settings.caFile);
    text += QStringLiteral("[params]\n");
    const QMap<QString, QString>& params = settings.productParams;
    for (auto param = params.cbegin(); param != params.cend(); ++param)
        text += param.key() + QStringLiteral(" = ") + quoted(param.value()) + QLatin1Char('\n');
    return text.toUtf8();
}

class SettingsTarget : public FuzzTarget
{
public:
    void run(const QByteArray& input) override
    {
        hostSettings() = m_former;
        QString error;
        const bool isRead = read(input, &error);
        const HostSettings first = hostSettings();
        if (!isRead) {
            require(written(first) == written(m_former), "a file that is refused changes nothing");
            require(error.startsWith(m_file + QLatin1Char(':')), "a refusal names the file", error);
            return;
        }
        checkRanges(first);
        require(read(input, &error) && written(hostSettings()) == written(first),
                "reading a file again changes nothing", error);
        hostSettings() = m_former;
        hostSettings().productParams.clear();
        require(read(written(first), &error), "what was read can be written", error);
        require(written(hostSettings()) == written(first), "what was written reads the same",
                QString::fromUtf8(written(first)));
    }

private:
    bool read(const QByteArray& content, QString* error) const
    {
        CatalogueFiles::write(m_file, content);
        const WriteGuard guard({});
        return loadHostSettings(m_file, error);
    }

    static void checkRanges(const HostSettings& settings)
    {
        for (const QString& path :
             {settings.resourcesPath, settings.dataLocation, settings.appDataPath,
              settings.testOutputDir, settings.developerResourceRoot, settings.caFile})
            require(path.isEmpty() || path.startsWith(QLatin1Char('/')), "paths are absolute",
                    path);
        require(settings.zoomDPI >= 0.1 && settings.zoomDPI <= 16, "the zoom is in its range");
        require(std::all_of(settings.partnerEditions.cbegin(), settings.partnerEditions.cend(),
                            [](int edition) { return edition >= 1 && edition <= 5; }),
                "editions are 1 to 5");
        require(settings.connectTimeoutMs > 0 && settings.stallTimeoutMs > 0
                    && settings.maxDownloadBytes > 0,
                "limits are above 0");
        require(settings.downloadRetries >= 0 && settings.downloadRetries <= 100
                    && settings.retryPauseMs >= 0 && settings.retryPauseMaxMs >= 0
                    && settings.downloadStepMs >= 0,
                "retries and pauses are in their ranges");
        require(settings.transfersSideBySide >= 1
                    && settings.transfersSideBySide <= HostSettings::maxTransfersSideBySide,
                "the number of transfers is in its range");
        require(settings.checkSpreadSeconds >= 0
                    && settings.checkSpreadSeconds <= HostSettings::maxCheckSpreadSeconds,
                "the spread is in its range");
    }

    const QString m_file = TestHome::path() + QStringLiteral("/settings.ini");
    const HostSettings m_former = hostSettings();
};

} // namespace

MV_FUZZ_TARGET(SettingsTarget, QCoreApplication)
