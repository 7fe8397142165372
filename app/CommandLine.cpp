#include "CommandLine.h"

#include <QCommandLineParser>
#include <QFileInfo>
#include <QUrl>

namespace {

const char description[] =
    R"(Browses, previews, collects, downloads and applies the resources of a slideshow editor.

Exit status: 0 success; 1 it could not start; 2 bad arguments.)";

const QLatin1String settingsOption("settings");
const QLatin1String serverOption("server");
const QLatin1String rootOption("root");
const QLatin1String resourcesOption("resources");
const QLatin1String verboseOption("verbose");

/// Returns the error of options that do not parse.
QString unknownText(const QCommandLineParser& parser)
{
    const QStringList unknown = parser.unknownOptionNames();
    for (const char* moved : {"demo", "script", "screenshot"}) {
        if (unknown.contains(QLatin1String(moved)))
            return QStringLiteral("unknown option --%1: mveditor-demo shows the samples and runs "
                                  "scripts")
                .arg(QLatin1String(moved));
    }
    return parser.errorText();
}

} // namespace

bool CommandLine::parse(const QStringList& arguments)
{
    // Not addHelpOption(): it also offers help on Qt's own options, which are not parsed here.
    const QCommandLineOption helpOption({QStringLiteral("h"), QStringLiteral("help")},
                                        QStringLiteral("print this help"));
    QCommandLineParser parser;
    const QCommandLineOption versionOption = parser.addVersionOption();
    parser.addOption(helpOption);
    addOptions(parser);
    if (!parser.parse(arguments))
        return fail(unknownText(parser));
    if (parser.isSet(helpOption))
        parser.showHelp();
    if (parser.isSet(versionOption))
        parser.showVersion();
    const QStringList operands = parser.positionalArguments();
    if (operands.size() > 1)
        return fail(QStringLiteral("unexpected: %1").arg(operands.at(1)));
    project = operands.value(0);
    return read(parser);
}

void CommandLine::addOptions(QCommandLineParser& parser) const
{
    parser.setApplicationDescription(QString::fromLatin1(description));
    const auto add = [&parser](QLatin1String name, const char* text, const char* value) {
        parser.addOption(
            QCommandLineOption(name, QString::fromLatin1(text), QString::fromLatin1(value)));
    };
    add(settingsOption, "host settings (INI file)", "FILE");
    add(serverOption, "root address of the resource server", "URL");
    add(rootOption, "download root; created if it is missing", "DIR");
    add(resourcesOption, "the application's installed resources", "DIR");
    parser.addPositionalArgument(QStringLiteral("PROJECT"),
                                 QStringLiteral("a project file to open, see README.md"),
                                 QStringLiteral("[PROJECT]"));
    add(verboseOption, "write the library's log to standard error", "");
}

bool CommandLine::read(const QCommandLineParser& parser)
{
    settingsFile = parser.value(settingsOption);
    server = parser.value(serverOption);
    root = parser.value(rootOption);
    resources = parser.value(resourcesOption);
    verbose = parser.isSet(verboseOption);
    if (!resources.isEmpty() && !QFileInfo(resources).isDir())
        return fail(QStringLiteral("no such resources folder: %1").arg(resources));
    return server.isEmpty() || checkServer();
}

bool CommandLine::checkServer()
{
    const QUrl url(server, QUrl::StrictMode);
    const bool http =
        url.scheme() == QLatin1String("http") || url.scheme() == QLatin1String("https");
    if (!url.isValid() || !http || url.host().isEmpty())
        return fail(QStringLiteral("--server takes an http or https address: %1").arg(server));
    if (!server.endsWith(QLatin1Char('/')))
        server += QLatin1Char('/');
    return true;
}

bool CommandLine::fail(const QString& text)
{
    m_error = text;
    return false;
}
