// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "Arguments.h"

#include <QCommandLineParser>
#include <QCoreApplication>

namespace {

const char description[] = R"(Makes, signs, checks and serves the tree of a resource server.

Commands:
  new KIND NAME         starts an item with a fresh GUID in a folder of its own; KIND is one of
                        filter, transition, motion, theme, bgmaterial
  build SOURCE OUT      writes the whole tree OUT from the items in SOURCE and checks it as lint
                        does; a tree that is there is replaced in one step
  retire SOURCE ITEM    takes an item (its folder or GUID) out of the source without deleting it,
                        and keeps others from taking its GUID
  keygen FILE           writes a new key for releases: FILE, which is secret, and FILE.pub
  sign TREE             signs the release of a tree with the secret key of --key
  verify TREE|URL       checks that a tree, or a server, has exactly what its release says
  lint TREE             checks a server's tree or an installation the way it will be read
  diff OLD NEW          what a user of the tree OLD fetches when NEW is published
  serve TREE            serves a tree on 127.0.0.1, to try it out
  upload TREE REMOTE    brings the release of a tree into force at an object store or web space,
                        with the program rclone: REMOTE and the options after "--" are as rclone
                        understands them

Exit status: 0 success, nothing but warnings, no difference; 1 faults, errors,
differences; 2 the work could not be done.)";

struct Command
{
    const char* name;
    int operands;
    const char* usage;
    QStringList options; // in addition to the common ones
};

const QVector<Command>& commands()
{
    static const QVector<Command> known{
        {"new", 2, "new takes a KIND and a NAME", {QStringLiteral("in")}},
        {"build",
         2,
         "build takes SOURCE and OUT",
         {QStringLiteral("edition"), QStringLiteral("installed"), QStringLiteral("expires"),
          QStringLiteral("renew"), QStringLiteral("no-release"), QStringLiteral("force")}},
        {"retire", 2, "retire takes SOURCE and ITEM", {}},
        {"keygen",
         1,
         "keygen takes one FILE",
         {QStringLiteral("password-fd"), QStringLiteral("no-password"), QStringLiteral("force")}},
        {"sign", 1, "sign takes one TREE", {QStringLiteral("key"), QStringLiteral("password-fd")}},
        {"verify", 1, "verify takes one TREE or URL", {QStringLiteral("key")}},
        {"lint", 1, "lint takes one TREE", {QStringLiteral("json")}},
        {"diff", 2, "diff takes OLD and NEW", {}},
        {"serve", 1, "serve takes one TREE", {QStringLiteral("port"), QStringLiteral("quiet")}},
        {"upload",
         2,
         "upload takes TREE and REMOTE",
         {QStringLiteral("prune"), QStringLiteral("dry-run")}},
    };
    return known;
}

/// The options and their help texts.
struct Options
{
    QCommandLineOption edition{
        QStringLiteral("edition"),
        QStringLiteral("build: an edition to publish for, standard (the default) or 1 to 5; can be "
                       "repeated"),
        QStringLiteral("EDITION")};
    QCommandLineOption installed{
        QStringLiteral("installed"),
        QStringLiteral("build: OUT is the application's folder \"Resource\"")};
    QCommandLineOption expires{
        QStringLiteral("expires"),
        QStringLiteral("build: clients refuse the release DAYS after its publication"),
        QStringLiteral("DAYS")};
    QCommandLineOption renew{
        QStringLiteral("renew"),
        QStringLiteral("build: publish a new release even if nothing has changed")};
    QCommandLineOption noRelease{QStringLiteral("no-release"),
                                 QStringLiteral("build: write no release and no contents by "
                                                "digest")};
    QCommandLineOption force{
        QStringLiteral("force"),
        QStringLiteral("build: publish a tree in which lint finds errors; keygen: "
                       "replace existing files")};
    QCommandLineOption key{
        QStringLiteral("key"),
        QStringLiteral("sign: the secret key; verify: a public key that may have "
                       "signed, a file or its line; can be repeated"),
        QStringLiteral("FILE")};
    QCommandLineOption passwordFd{
        QStringLiteral("password-fd"),
        QStringLiteral("keygen, sign: read the password from the open file descriptor N instead "
                       "of asking on the terminal"),
        QStringLiteral("N")};
    QCommandLineOption noPassword{QStringLiteral("no-password"),
                                  QStringLiteral("keygen: do not protect the secret key")};
    QCommandLineOption in{QStringLiteral("in"),
                          QStringLiteral("new: the source; the current folder by default"),
                          QStringLiteral("SOURCE"), QStringLiteral(".")};
    QCommandLineOption json{QStringLiteral("json"),
                            QStringLiteral("lint: print one JSON document")};
    QCommandLineOption port{QStringLiteral("port"),
                            QStringLiteral("serve: port; a free one by default"),
                            QStringLiteral("N"), QStringLiteral("0")};
    QCommandLineOption quiet{QStringLiteral("quiet"),
                             QStringLiteral("serve: do not print requests")};
    QCommandLineOption prune{
        QStringLiteral("prune"),
        QStringLiteral("upload: then remove the files that no release of the last DAYS days names"),
        QStringLiteral("DAYS")};
    QCommandLineOption dryRun{QStringLiteral("dry-run"),
                              QStringLiteral("upload: print what would be sent and removed")};
    QCommandLineOption help{{QStringLiteral("h"), QStringLiteral("help")},
                            QStringLiteral("print this help")};
};

void describe(QCommandLineParser& parser)
{
    parser.setApplicationDescription(QString::fromLatin1(description));
    parser.addPositionalArgument(
        QStringLiteral("COMMAND"),
        QStringLiteral("new, build, retire, keygen, sign, verify, lint, diff, serve or upload"));
    parser.addPositionalArgument(QStringLiteral("ARGUMENTS"), QStringLiteral("see above"),
                                 QStringLiteral("ARGUMENTS..."));
}

/// Removes "--" and what follows it, and returns what follows.
QStringList takeAfterDashes(QStringList& words)
{
    const int dashes = words.indexOf(QStringLiteral("--"));
    const QStringList rest = dashes < 0 ? QStringList() : words.mid(dashes + 1);
    if (dashes >= 0)
        words = words.mid(0, dashes);
    return rest;
}

} // namespace

bool Arguments::parse(const QCoreApplication& application)
{
    const Options options;
    QCommandLineParser parser;
    describe(parser);
    const QCommandLineOption versionOption = parser.addVersionOption();
    parser.addOptions({options.help, options.edition, options.installed, options.expires,
                       options.renew, options.noRelease, options.force, options.key,
                       options.passwordFd, options.noPassword, options.in, options.json,
                       options.port, options.quiet, options.prune, options.dryRun});
    QStringList words = application.arguments();
    const QStringList afterDashes = takeAfterDashes(words);
    if (!parser.parse(words))
        return fail(parser.errorText());
    if (parser.isSet(options.help))
        parser.showHelp();
    if (parser.isSet(versionOption))
        parser.showVersion();
    operands = parser.positionalArguments();
    if (operands.isEmpty())
        return fail(QStringLiteral("no command; see mvpublish --help"));
    command = operands.takeFirst();
    const bool isUpload = command == QLatin1String("upload");
    (isUpload ? rcloneOptions : operands) += afterDashes;
    installed = parser.isSet(options.installed);
    renew = parser.isSet(options.renew);
    force = parser.isSet(options.force);
    keys = parser.values(options.key);
    noPassword = parser.isSet(options.noPassword);
    source = parser.value(options.in);
    json = parser.isSet(options.json);
    quiet = parser.isSet(options.quiet);
    dryRun = parser.isSet(options.dryRun);
    return checkOperands(parser.optionNames()) && readEditions(parser.values(options.edition))
        && readRelease(parser.isSet(options.noRelease), parser.value(options.expires)) && readKeys()
        && readPassword(parser.value(options.passwordFd)) && readPort(parser.value(options.port))
        && readDays(QStringLiteral("prune"), parser.value(options.prune), pruneDays);
}

bool Arguments::isAddress(const QString& operand)
{
    return operand.startsWith(QLatin1String("http://"))
        || operand.startsWith(QLatin1String("https://"));
}

bool Arguments::checkOperands(const QStringList& options)
{
    for (const Command& known : commands()) {
        if (command != QLatin1String(known.name))
            continue;
        if (operands.size() != known.operands || operands.contains(QString()))
            return fail(QString::fromLatin1(known.usage));
        for (const QString& option : options) {
            if (!known.options.contains(option))
                return fail(QStringLiteral("--%1 does not go with %2").arg(option, command));
        }
        return true;
    }
    return fail(QStringLiteral("unknown command \"%1\"; see mvpublish --help").arg(command));
}

bool Arguments::readEditions(const QStringList& texts)
{
    if (installed && !texts.isEmpty())
        return fail(QStringLiteral("an installation is the same for all editions"));
    for (const QString& text : texts) {
        const Edition* const edition = Editions::byName(text);
        if (!edition)
            return fail(QStringLiteral("--edition takes standard or 1 to 5, not \"%1\"").arg(text));
        editions.append(*edition);
    }
    if (editions.isEmpty())
        editions.append(Editions::all().constFirst());
    return true;
}

bool Arguments::readRelease(bool isSwitchedOff, const QString& days)
{
    hasRelease = !installed && !isSwitchedOff;
    if (!hasRelease && (renew || !days.isNull()))
        return fail(QStringLiteral("--expires and --renew need a release, which %1 has not")
                        .arg(installed ? QStringLiteral("an installation")
                                       : QStringLiteral("a tree built with --no-release")));
    return readDays(QStringLiteral("expires"), days, expiryDays);
}

bool Arguments::readKeys()
{
    return command != QLatin1String("sign") || keys.size() == 1
        || fail(QStringLiteral("sign takes one --key"));
}

bool Arguments::readPassword(const QString& descriptor)
{
    if (descriptor.isNull())
        return true;
    if (noPassword)
        return fail(QStringLiteral("--password-fd does not go with --no-password"));
    bool ok = false;
    passwordDescriptor = descriptor.toInt(&ok);
    return (ok && passwordDescriptor >= 0)
        || fail(QStringLiteral("--password-fd takes the number of an open file descriptor"));
}

bool Arguments::readPort(const QString& text)
{
    bool ok = false;
    port = text.toUShort(&ok);
    return ok || fail(QStringLiteral("--port takes a number from 0 to 65535"));
}

bool Arguments::readDays(const QString& option, const QString& text, int& days)
{
    if (text.isNull())
        return true;
    constexpr int maxDays = 36500;
    bool ok = false;
    days = text.toInt(&ok);
    return (ok && days >= 1 && days <= maxDays)
        || fail(
               QStringLiteral("--%1 takes a number of days from 1 to %2").arg(option).arg(maxDays));
}

bool Arguments::fail(const QString& text)
{
    m_error = text;
    return false;
}
