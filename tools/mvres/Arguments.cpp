// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "Arguments.h"

#include "download/ReleaseKey.h"
#include "HelpText.h"
#include "ProgramTable.h"

#include <QCommandLineParser>
#include <QCoreApplication>

namespace {

/// An option without value of some commands.
struct Switch
{
    const char* name;
    bool Arguments::*flag;
};

const Switch switches[] = {
    {"all", &Arguments::all},       {"dry-run", &Arguments::dryRun}, {"deep", &Arguments::deep},
    {"repair", &Arguments::repair}, {"fetch", &Arguments::fetch},    {"off", &Arguments::off},
    {"wait", &Arguments::wait},
};

/// Returns "a", "a and b", "a, b and c".
QString listed(QStringList names)
{
    const QString last = names.takeLast();
    return names.isEmpty() ? last
                           : names.join(QStringLiteral(", ")) + QStringLiteral(" and ") + last;
}

/// Prints the help on the command that is named, or on all, and ends the process.
[[noreturn]] void printHelp(const QStringList& operands)
{
    const ProgramTable::Command* const command = programTable().command(operands.value(0));
    HelpText::printAndExit(command ? HelpText::ofCommand(programTable(), *command)
                                   : HelpText::ofProgram(programTable()));
}

} // namespace

bool Arguments::parse(const QCoreApplication& application)
{
    QCommandLineParser parser;
    parser.addOptions(programTable().allOptions());
    if (!parser.parse(application.arguments()))
        return fail(parser.errorText());
    if (parser.isSet(ProgramTable::helpOption()))
        printHelp(parser.positionalArguments());
    if (parser.isSet(ProgramTable::versionOption()))
        HelpText::printAndExit(HelpText::version());
    if (!host.read(parser))
        return fail(host.errorText());
    QString error;
    if (!ReleaseKey::areUsable(host.releaseKeys, error))
        return fail(error);
    json = parser.isSet(QStringLiteral("json"));
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
        const QStringList takers = programTable().commandsWith(name);
        this->*option.flag = parser.isSet(name);
        if (this->*option.flag && !takers.contains(command))
            return fail(QStringLiteral("--%1 applies only to %2").arg(name, listed(takers)));
    }
    return true;
}

bool Arguments::checkOperands()
{
    const ProgramTable::Command* const known = programTable().command(command);
    if (!known)
        return fail(QStringLiteral("unknown command \"%1\"; see mvres --help").arg(command));
    const auto count = operands.size();
    if (all && count > 0)
        return fail(QStringLiteral("%1 takes either GUIDs or --all").arg(command));
    if (all)
        return true;
    const bool isTooMuch =
        known->maxOperands != ProgramTable::anyNumber && count > known->maxOperands;
    return (count >= known->minOperands && !isTooMuch) || fail(known->operandsFault);
}

bool Arguments::fail(const QString& text)
{
    m_error = text;
    return false;
}
