// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "host/HostOptions.h"

#include "host/HostSettingsFile.h"
#include "host/LogL.h"
#include "host/ProductParam.h"

#include <QByteArray>
#include <QCommandLineOption>
#include <QCommandLineParser>
#include <QDir>
#include <QFileInfo>
#include <QUrl>

#include <cstdio>

namespace {

struct Option
{
    const char* name;
    const char* help;
    const char* value; // empty: a switch
};

constexpr Option settingsOption = {"settings", "host settings (INI file)", "FILE"};
constexpr Option serverOption = {"server", "root address of the resource server", "URL"};
constexpr Option dataOption = {
    "data", "one folder for the data of all programs: download root, favourites, settings.ini",
    "DIR"};
constexpr Option rootOption = {"root", "download root; created if it is missing", "DIR"};
constexpr Option resourcesOption = {"resources", "the application's installed resources", "DIR"};
constexpr Option paramOption = {"param", "product parameter; can be repeated", "KEY=VALUE"};
constexpr Option releaseOption = {
    "release", "what to do with the server's releases: ignore, use or require", "POLICY"};
constexpr Option keyOption = {
    "key", "public key that must have signed releases; can be repeated; requires releases", "KEY"};
constexpr Option verboseOption = {"verbose", "write the library's log to standard error", ""};

QString nameOf(const Option& option)
{
    return QString::fromLatin1(option.name);
}

QString absolute(const QString& path)
{
    return QDir::cleanPath(QDir().absoluteFilePath(path));
}

void writeLog(const QByteArray& category, int level, const QByteArray& text)
{
    std::fprintf(stderr, "[%s %d] %s\n", category.constData(), level, text.constData());
}

void dropLog(const QByteArray&, int, const QByteArray&) { }

} // namespace

QList<QCommandLineOption> HostOptions::options()
{
    QList<QCommandLineOption> all;
    for (const Option& option :
         {settingsOption, dataOption, serverOption, rootOption, resourcesOption, paramOption,
          releaseOption, keyOption, verboseOption}) {
        all.append(QCommandLineOption(nameOf(option), QString::fromLatin1(option.help),
                                      QString::fromLatin1(option.value)));
    }
    return all;
}

void HostOptions::addTo(QCommandLineParser& parser)
{
    parser.addOptions(options());
}

bool HostOptions::read(const QCommandLineParser& parser)
{
    for (const Option& option : {settingsOption, dataOption, rootOption, resourcesOption}) {
        if (parser.isSet(nameOf(option)) && parser.value(nameOf(option)).isEmpty())
            return fail(QStringLiteral("--%1 is empty").arg(nameOf(option)));
    }
    settingsFile = parser.value(nameOf(settingsOption));
    data = parser.value(nameOf(dataOption));
    root = parser.value(nameOf(rootOption));
    resources = parser.value(nameOf(resourcesOption));
    verbose = parser.isSet(nameOf(verboseOption));
    return readParams(parser.values(nameOf(paramOption))) && readReleases(parser)
        && (!parser.isSet(nameOf(serverOption)) || readServer(parser.value(nameOf(serverOption))));
}

bool HostOptions::readParams(const QStringList& texts)
{
    for (const QString& text : texts) {
        const int equals = text.indexOf(QLatin1Char('='));
        if (equals < 1)
            return fail(QStringLiteral("--param takes KEY=VALUE, not \"%1\"").arg(text));
        params.insert(text.left(equals), text.mid(equals + 1));
    }
    return true;
}

bool HostOptions::readReleases(const QCommandLineParser& parser)
{
    releaseKeys = parser.values(nameOf(keyOption));
    if (!parser.isSet(nameOf(releaseOption)))
        return true;
    const QString text = parser.value(nameOf(releaseOption));
    const int policy = HostSettingsFile::releasePolicies().indexOf(text);
    if (policy < 0)
        return fail(
            QStringLiteral("--release takes %1, not \"%2\"")
                .arg(HostSettingsFile::releasePolicies().join(QStringLiteral(" or ")), text));
    releasePolicy = static_cast<EReleasePolicy>(policy);
    if (releasePolicy == eRelease_Ignore && !releaseKeys.isEmpty())
        return fail(QStringLiteral("--key has no effect with --release ignore"));
    return true;
}

/// File names are appended unchanged to the root, so it must end where a name can follow.
bool HostOptions::readServer(const QString& text)
{
    const QUrl url(text, QUrl::StrictMode);
    const bool isHttp =
        url.scheme() == QLatin1String("http") || url.scheme() == QLatin1String("https");
    if (!url.isValid() || !isHttp || url.host().isEmpty())
        return fail(
            QStringLiteral("--server takes an http or https address, not \"%1\"").arg(text));
    server = text.endsWith(QLatin1Char('/')) ? text : text + QLatin1Char('/');
    return true;
}

bool HostOptions::apply(QString* error) const
{
    const QString file = settingsInUse();
    if (!file.isEmpty() && !loadHostSettings(file, error))
        return false;
    HostSettings& settings = hostSettings();
    if (!data.isEmpty())
        applyData(settings);
    if (!resources.isEmpty())
        settings.resourcesPath = absolute(resources);
    if (!server.isEmpty())
        settings.productParams.insert(ProductParam::serverRoot, server);
    for (auto param = params.cbegin(); param != params.cend(); ++param)
        settings.productParams.insert(param.key(), param.value());
    if (!releaseKeys.isEmpty()) {
        settings.releaseKeys = releaseKeys;
        settings.releasePolicy = eRelease_Require;
    }
    if (releasePolicy)
        settings.releasePolicy = *releasePolicy;
    return true;
}

/// Returns the settings file that is named, or that of the data folder if it has one.
QString HostOptions::settingsInUse() const
{
    if (!settingsFile.isEmpty() || data.isEmpty())
        return settingsFile;
    const QString file = absolute(data) + QStringLiteral("/settings.ini");
    return QFileInfo::exists(file) ? file : QString();
}

QString HostOptions::defaultResources() const
{
    return data.isEmpty() ? HostSettings().resourcesPath
                          : absolute(data) + QStringLiteral("/resources");
}

/// Replaces the folders that depend on the program's name, so that programs share theirs.
void HostOptions::applyData(HostSettings& settings) const
{
    const QString own = HostSettings().resourcesPath;
    for (QString* const folder : {&settings.resourcesPath, &settings.testOutputDir}) {
        if (*folder == own)
            *folder = defaultResources();
    }
    settings.dataLocation = absolute(data);
    settings.appDataPath = absolute(data);
}

void HostOptions::applyLog() const
{
    setLogSink(verbose ? &writeLog : &dropLog);
}

QString HostOptions::downloadRoot() const
{
    return absolute(root.isEmpty() ? hostSettings().dataLocation + QStringLiteral("/download")
                                   : root);
}

bool HostOptions::fail(const QString& text)
{
    m_error = text;
    return false;
}
