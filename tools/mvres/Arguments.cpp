// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "Arguments.h"

#include "download/ReleaseKey.h"

#include <QCommandLineOption>
#include <QCommandLineParser>
#include <QCoreApplication>

#include <initializer_list>

namespace {

const char description[] = R"(Lists, inspects, fetches and updates the resources of a catalogue.

Commands:
  list [KIND]           items of the catalogue: GUID, kind, name, theme type, favourite, size on
                        disk or to fetch, and "ready", "outdated", "damaged" or the number of
                        missing files; KIND is one of filter,
                        transition, motion, theme, bgmaterial
  show GUID             one item, its files and what it depends on
  fetch GUID...         downloads what the items lack, with progress; --all: what every item
                        of the catalogue lacks
  need FILE|GUID...     what of a set of items is to be fetched, with bytes; FILE is JSON, an
                        array of GUIDs or {"items": [{"guid": "...", "name": "..."}]};
                        --fetch downloads it
  update [GUID...]      fetches what differs from the server's release, for outdated and
                        damaged items on disk, or for these; --all: for every item on disk;
                        --dry-run only lists it
  verify [GUID...]      states of the items on disk, or of these, with the files that are not
                        the published ones; --deep reads every file; --repair fetches them
  remove GUID...        removes the items' files that no other item on disk needs
  du                    disk space of the items on disk, largest first: of files that they
                        alone need, of files that they share, and both
  clean                 removes files that no catalogue names and what interrupted commands
                        have left; --dry-run only lists them
  favourite GUID        marks an item as a favourite; --off takes the mark away
  check                 asks the server for a newer catalogue and fetches it, then the
                        previews that are missing, counting them on a terminal; --wait
                        returns only when the threads that did it have ended
  builtin DIR           extracts what ships with the application out of the full resource
                        tree DIR (its last component is "Resource") into DIR/config_local
  paths                 folders and addresses in use

Exit status: 0 success; 1 failure; 2 bad arguments.
fetch, update, verify --repair and need --fetch, by the cause of the first failure: 14 cancelled,
31 the disk is full, 32 no permission to write, 33 a local file cannot be written,
34 the server cannot be reached, 35 the connection was lost, 36 a file is not on the server,
37 the server reports an error, 38 no usable address, 39 a file is too large, 40 a file is damaged.
verify: 14 cancelled, 50 files are outdated, 51 files are damaged or missing.
need: 52 items are to be fetched, 53 items are unknown.
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
    {"need", 1, -1, "need takes a FILE or at least one GUID"},
    {"update", 0, -1, ""},
    {"verify", 0, -1, ""},
    {"remove", 1, -1, "remove takes at least one GUID"},
    {"du", 0, 0, "du takes no arguments"},
    {"clean", 0, 0, "clean takes no arguments"},
    {"favourite", 1, 1, "favourite takes one GUID"},
    {"check", 0, 0, "check takes no arguments"},
    {"builtin", 1, 1, "builtin takes one DIR"},
    {"paths", 0, 0, "paths takes no arguments"},
};

/// An option without value of some commands.
struct Switch
{
    const char* name;
    const char* help;
    bool Arguments::*flag;
    std::initializer_list<const char*> commands;
};

const Switch switches[] = {
    {"all", "update: every item on disk; fetch: every item", &Arguments::all, {"update", "fetch"}},
    {"dry-run", "update, clean: change nothing", &Arguments::dryRun, {"update", "clean"}},
    {"deep", "verify: read every file", &Arguments::deep, {"verify"}},
    {"repair", "verify: fetch the published files", &Arguments::repair, {"verify"}},
    {"fetch", "need: download the items", &Arguments::fetch, {"need"}},
    {"off", "favourite: take the mark away", &Arguments::off, {"favourite"}},
    {"wait", "check: return when its threads have ended", &Arguments::wait, {"check"}},
};

QStringList namesOf(const Switch& option)
{
    QStringList names;
    for (const char* const name : option.commands)
        names.append(QString::fromLatin1(name));
    return names;
}

QCommandLineOption switchOption(const char* name, const char* help)
{
    return {QString::fromLatin1(name), QString::fromLatin1(help)};
}

struct Options
{
    QCommandLineOption json = switchOption("json", "print one JSON document, on failure too");
    // Not addHelpOption(): it also offers help on Qt's own options, which are not parsed here.
    QCommandLineOption help{{QStringLiteral("h"), QStringLiteral("help")},
                            QStringLiteral("print this help")};
    QCommandLineOption version = switchOption("version", "print the version");

    void addTo(QCommandLineParser& parser)
    {
        version = parser.addVersionOption();
        parser.addOption(help);
        HostOptions::addTo(parser);
        parser.addOption(json);
        for (const Switch& option : switches)
            parser.addOption(switchOption(option.name, option.help));
    }
};

} // namespace

bool Arguments::parse(const QCoreApplication& application)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(QString::fromLatin1(description));
    Options options;
    options.addTo(parser);
    parser.addPositionalArgument(QStringLiteral("COMMAND"),
                                 QStringLiteral("one of the commands above"));
    parser.addPositionalArgument(QStringLiteral("ARGUMENTS"), QStringLiteral("see above"),
                                 QStringLiteral("[ARGUMENTS...]"));
    if (!parser.parse(application.arguments()))
        return fail(parser.errorText());
    if (parser.isSet(options.help))
        parser.showHelp();
    if (parser.isSet(options.version))
        parser.showVersion();
    if (!host.read(parser))
        return fail(host.errorText());
    QString error;
    if (!ReleaseKey::areUsable(host.releaseKeys, error))
        return fail(error);
    json = parser.isSet(options.json);
    operands = parser.positionalArguments();
    if (operands.isEmpty())
        return fail(QStringLiteral("no command; see mvres --help"));
    command = operands.takeFirst();
    return readSwitches(parser) && checkOperands();
}

bool Arguments::readSwitches(const QCommandLineParser& parser)
{
    for (const Switch& option : switches) {
        const QString name = QString::fromLatin1(option.name);
        this->*option.flag = parser.isSet(name);
        if (this->*option.flag && !namesOf(option).contains(command))
            return fail(QStringLiteral("--%1 applies only to %2")
                            .arg(name, namesOf(option).join(QStringLiteral(" and "))));
    }
    return true;
}

bool Arguments::checkOperands()
{
    for (const Command& known : commands) {
        if (command != QLatin1String(known.name))
            continue;
        const int count = operands.size();
        if (all && count > 0)
            return fail(QStringLiteral("%1 takes either GUIDs or --all").arg(command));
        if (all)
            return true;
        if (count < known.minOperands || (known.maxOperands >= 0 && count > known.maxOperands))
            return fail(QString::fromLatin1(known.usage));
        return true;
    }
    return fail(QStringLiteral("unknown command \"%1\"; see mvres --help").arg(command));
}

bool Arguments::fail(const QString& text)
{
    m_error = text;
    return false;
}
