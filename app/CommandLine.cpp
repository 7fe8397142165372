#include "CommandLine.h"

#include <QCommandLineParser>
#include <QFileInfo>
#include <QUrl>

namespace {

const char description[] =
    R"(Browses, previews, collects, downloads and applies the resources of a slideshow editor.

Exit status: 0 success; 1 it could not start, or a step of the script failed; 2 bad arguments.)";

QString text(const char* latin1)
{
    return QString::fromLatin1(latin1);
}

} // namespace

bool CommandLine::parse(const QStringList& arguments)
{
    const QCommandLineOption settingsOption(text("settings"), text("host settings (INI file)"),
                                            text("FILE"));
    const QCommandLineOption serverOption(text("server"),
                                          text("root address of the resource server"), text("URL"));
    const QCommandLineOption rootOption(
        text("root"), text("download root; created if it is missing"), text("DIR"));
    const QCommandLineOption resourcesOption(
        text("resources"), text("the application's installed resources"), text("DIR"));
    const QCommandLineOption demoOption(
        text("demo"), text("serve the samples and keep everything in a temporary folder"));
    const QCommandLineOption scriptOption(
        text("script"), text("drive the window by the steps in a file, then end"), text("FILE"));
    const QCommandLineOption screenshotOption(
        text("screenshot"),
        text("where pictures go; without a script: one of the window, then end"), text("DIR"));
    const QCommandLineOption verboseOption(text("verbose"),
                                           text("write the library's log to standard error"));
    // Not addHelpOption(): it also offers help on Qt's own options, which are not parsed here.
    const QCommandLineOption helpOption({text("h"), text("help")}, text("print this help"));

    QCommandLineParser parser;
    parser.setApplicationDescription(text(description));
    const QCommandLineOption versionOption = parser.addVersionOption();
    parser.addOptions({helpOption, settingsOption, serverOption, rootOption, resourcesOption,
                       demoOption, scriptOption, screenshotOption, verboseOption});
    if (!parser.parse(arguments))
        return fail(parser.errorText());
    if (parser.isSet(helpOption))
        parser.showHelp();
    if (parser.isSet(versionOption))
        parser.showVersion();
    if (!parser.positionalArguments().isEmpty())
        return fail(
            QStringLiteral("unexpected: %1").arg(parser.positionalArguments().constFirst()));
    settingsFile = parser.value(settingsOption);
    server = parser.value(serverOption);
    root = parser.value(rootOption);
    resources = parser.value(resourcesOption);
    demo = parser.isSet(demoOption);
    verbose = parser.isSet(verboseOption);
    scriptFile = parser.value(scriptOption);
    screenshotFolder = parser.value(screenshotOption);
    return check();
}

bool CommandLine::check()
{
    if (!server.isEmpty()) {
        const QUrl url(server, QUrl::StrictMode);
        const bool http =
            url.scheme() == QLatin1String("http") || url.scheme() == QLatin1String("https");
        if (!url.isValid() || !http || url.host().isEmpty())
            return fail(QStringLiteral("--server takes an http or https address: %1").arg(server));
        if (!server.endsWith(QLatin1Char('/')))
            server += QLatin1Char('/');
    }
    if (!resources.isEmpty() && !QFileInfo(resources).isDir())
        return fail(QStringLiteral("no such resources folder: %1").arg(resources));
    if (!scriptFile.isEmpty() && !QFileInfo(scriptFile).isFile())
        return fail(QStringLiteral("no such script: %1").arg(scriptFile));
    if (demo && !server.isEmpty())
        return fail(QStringLiteral("--demo brings a server of its own; leave --server out"));
    return true;
}

bool CommandLine::fail(const QString& text)
{
    m_error = text;
    return false;
}
