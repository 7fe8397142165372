// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "Arguments.h"

#include "HelpText.h"
#include "ProgramTable.h"

#include <QCommandLineParser>
#include <QCoreApplication>

namespace {

QString name(const char* option)
{
    return QString::fromLatin1(option);
}

/// Prints the help on the command that is named, or on all, and ends the process.
[[noreturn]] void printHelp(const QStringList& operands)
{
    const ProgramTable::Command* const command = programTable().command(operands.value(0));
    HelpText::printAndExit(command ? HelpText::ofCommand(programTable(), *command)
                                   : HelpText::ofProgram(programTable()));
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
    QCommandLineParser parser;
    parser.addOptions(programTable().allOptions());
    QStringList words = application.arguments();
    const QStringList afterDashes = takeAfterDashes(words);
    if (!parser.parse(words))
        return fail(parser.errorText());
    if (parser.isSet(ProgramTable::helpOption()))
        printHelp(parser.positionalArguments());
    if (parser.isSet(ProgramTable::versionOption()))
        HelpText::printAndExit(HelpText::version());
    operands = parser.positionalArguments();
    if (operands.isEmpty())
        return fail(QStringLiteral("no command; see mvpublish --help"));
    command = operands.takeFirst();
    const bool isUpload = command == QLatin1String("upload");
    (isUpload ? rcloneOptions : operands) += afterDashes;
    installed = parser.isSet(name("installed"));
    renew = parser.isSet(name("renew"));
    force = parser.isSet(name("force"));
    keys = parser.values(name("key"));
    noPassword = parser.isSet(name("no-password"));
    source = parser.value(name("in"));
    isAscii = parser.isSet(name("ascii"));
    json = parser.isSet(name("json"));
    quiet = parser.isSet(name("quiet"));
    dryRun = parser.isSet(name("dry-run"));
    return checkOperands(parser.optionNames()) && readEditions(parser.values(name("edition")))
        && readRelease(parser.isSet(name("no-release")), parser.value(name("expires")))
        && readKeys() && readPassword(parser.value(name("password-fd")))
        && readPort(parser.value(name("port")))
        && readDays(QStringLiteral("prune"), parser.value(name("prune")), pruneDays);
}

bool Arguments::asksForJson(const QStringList& words)
{
    const auto json = words.indexOf(QStringLiteral("--json"));
    const auto dashes = words.indexOf(QStringLiteral("--"));
    return json >= 0 && (dashes < 0 || json < dashes);
}

bool Arguments::isAddress(const QString& operand)
{
    return operand.startsWith(QLatin1String("http://"))
        || operand.startsWith(QLatin1String("https://"));
}

bool Arguments::checkOperands(const QStringList& options)
{
    const ProgramTable::Command* const known = programTable().command(command);
    if (!known)
        return fail(QStringLiteral("unknown command \"%1\"; see mvpublish --help").arg(command));
    if (operands.size() != known->minOperands || operands.contains(QString()))
        return fail(known->operandsFault);
    for (const QString& option : options) {
        if (!programTable().commandsWith(option).contains(command))
            return fail(QStringLiteral("--%1 does not go with %2").arg(option, command));
    }
    return true;
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
