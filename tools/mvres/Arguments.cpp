#include "Arguments.h"

#include <QCommandLineOption>
#include <QCommandLineParser>
#include <QCoreApplication>
#include <QUrl>

namespace {

const char description[] = R"(Lists, inspects and fetches the resources of a catalogue.

Commands:
  list [KIND]           items of the catalogue: GUID, kind, name, theme type, favourite, and
                        "ready" or the number of missing files; KIND is one of filter,
                        transition, motion, theme, bgmaterial
  show GUID             one item, its files and what it depends on
  fetch GUID...         downloads what the items lack, with progress
  favourite GUID        marks an item as a favourite; --off takes the mark away
  check                 asks the server for a newer catalogue and fetches it, then the
                        previews that are missing, counting them on a terminal; --wait
                        returns only when the threads that did it have ended
  builtin DIR           extracts what ships with the application out of the full resource
                        tree DIR (its last component is "Resource") into DIR/config_local
  paths                 folders and addresses in use

Exit status: 0 success; 1 failure; 2 bad arguments.
fetch, by the cause of the first failure: 14 cancelled, 31 the disk is full, 32 no permission
to write, 33 a local file cannot be written, 34 the server cannot be reached, 35 the connection
was lost, 36 a file is not on the server, 37 the server reports an error, 38 no usable address,
39 a file is too large, 40 a file is damaged.
check: 0 the catalogue is current, 20 it has changed and was fetched, 21 the server's
needs a newer application, 22 the server's is older, 23 the server could not be reached,
24 the server's was rejected, 25 cancelled, 26 the new one could not be stored; where the
catalogue itself is in order: 27 previews could not be fetched.)";

struct Command
{
    const char* name;
    int minOperands;
    int maxOperands; // -1: any number
    const char* usage;
};

const Command commands[] = {
    {"list", 0, 1, "list takes at most one KIND"},
    {"show", 1, 1, "show takes one GUID"},
    {"fetch", 1, -1, "fetch takes at least one GUID"},
    {"favourite", 1, 1, "favourite takes one GUID"},
    {"check", 0, 0, "check takes no arguments"},
    {"builtin", 1, 1, "builtin takes one DIR"},
    {"paths", 0, 0, "paths takes no arguments"},
};

QCommandLineOption valueOption(const char* name, const char* help, const char* value)
{
    return {QString::fromLatin1(name), QString::fromLatin1(help), QString::fromLatin1(value)};
}

QCommandLineOption switchOption(const char* name, const char* help)
{
    return {QString::fromLatin1(name), QString::fromLatin1(help)};
}

struct Options
{
    QCommandLineOption settings = valueOption("settings", "host settings (INI file)", "FILE");
    QCommandLineOption server = valueOption("server", "root address of the resource server", "URL");
    QCommandLineOption root = valueOption("root", "download root; created if it is missing", "DIR");
    QCommandLineOption resources =
        valueOption("resources", "the application's installed resources", "DIR");
    QCommandLineOption param =
        valueOption("param", "product parameter; can be repeated", "KEY=VALUE");
    QCommandLineOption json = switchOption("json", "print one JSON document, on failure too");
    QCommandLineOption verbose =
        switchOption("verbose", "write the library's log to standard error");
    QCommandLineOption off = switchOption("off", "favourite: take the mark away");
    QCommandLineOption wait = switchOption("wait", "check: return when its threads have ended");
    // Not addHelpOption(): it also offers help on Qt's own options, which are not parsed here.
    QCommandLineOption help{{QStringLiteral("h"), QStringLiteral("help")},
                            QStringLiteral("print this help")};
    QCommandLineOption version = switchOption("version", "print the version");

    void addTo(QCommandLineParser& parser)
    {
        version = parser.addVersionOption();
        parser.addOptions(
            {help, settings, server, root, resources, param, json, verbose, off, wait});
    }
};

} // namespace

bool Arguments::parse(const QCoreApplication& application)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(QString::fromLatin1(description));
    Options options;
    options.addTo(parser);
    parser.addPositionalArgument(
        QStringLiteral("COMMAND"),
        QStringLiteral("list, show, fetch, favourite, check, builtin or paths"));
    parser.addPositionalArgument(QStringLiteral("ARGUMENTS"), QStringLiteral("see above"),
                                 QStringLiteral("[ARGUMENTS...]"));
    if (!parser.parse(application.arguments()))
        return fail(parser.errorText());
    if (parser.isSet(options.help))
        parser.showHelp();
    if (parser.isSet(options.version))
        parser.showVersion();
    for (const QCommandLineOption& option : {options.settings, options.root, options.resources}) {
        if (parser.isSet(option) && parser.value(option).isEmpty())
            return fail(QStringLiteral("--%1 is empty").arg(option.names().constFirst()));
    }

    settingsFile = parser.value(options.settings);
    root = parser.value(options.root);
    resources = parser.value(options.resources);
    json = parser.isSet(options.json);
    verbose = parser.isSet(options.verbose);
    off = parser.isSet(options.off);
    wait = parser.isSet(options.wait);
    operands = parser.positionalArguments();
    if (operands.isEmpty())
        return fail(QStringLiteral("no command; see mvres --help"));
    command = operands.takeFirst();
    return checkOperands() && readParams(parser.values(options.param))
        && (!parser.isSet(options.server) || readServer(parser.value(options.server)));
}

bool Arguments::checkOperands()
{
    for (const Command& known : commands) {
        if (command != QLatin1String(known.name))
            continue;
        const int count = operands.size();
        if (count < known.minOperands || (known.maxOperands >= 0 && count > known.maxOperands))
            return fail(QString::fromLatin1(known.usage));
        if (off && command != QLatin1String("favourite"))
            return fail(QStringLiteral("--off applies only to favourite"));
        if (wait && command != QLatin1String("check"))
            return fail(QStringLiteral("--wait applies only to check"));
        return true;
    }
    return fail(QStringLiteral("unknown command \"%1\"; see mvres --help").arg(command));
}

bool Arguments::readParams(const QStringList& texts)
{
    for (const QString& text : texts) {
        const int equals = text.indexOf(QLatin1Char('='));
        if (equals < 1)
            return fail(QStringLiteral("--param takes KEY=VALUE, not \"%1\"").arg(text));
        params.insert(text.left(equals), text.mid(equals + 1));
    }
    return true;
}

/// File names are appended unchanged to the root, so it must end where a name can follow.
bool Arguments::readServer(const QString& text)
{
    const QUrl url(text);
    const bool http =
        url.scheme() == QLatin1String("http") || url.scheme() == QLatin1String("https");
    if (!url.isValid() || !http || url.host().isEmpty())
        return fail(
            QStringLiteral("--server takes an http or https address, not \"%1\"").arg(text));
    server = text.endsWith(QLatin1Char('/')) ? text : text + QLatin1Char('/');
    return true;
}

bool Arguments::fail(const QString& text)
{
    m_error = text;
    return false;
}
