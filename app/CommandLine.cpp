// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "CommandLine.h"

#include "download/ReleaseKey.h"
#include "HelpText.h"

#include <QCommandLineParser>
#include <QFileInfo>

namespace {

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
    const ProgramTable described = table();
    QCommandLineParser parser;
    parser.addOptions(described.allOptions());
    if (!parser.parse(arguments))
        return fail(unknownText(parser));
    if (parser.isSet(ProgramTable::helpOption()))
        HelpText::printAndExit(HelpText::ofProgram(described));
    if (parser.isSet(ProgramTable::versionOption()))
        parser.showVersion();
    const QStringList operands = parser.positionalArguments();
    if (operands.size() > 1)
        return fail(QStringLiteral("unexpected: %1").arg(operands.at(1)));
    project = operands.value(0);
    return read(parser);
}

ProgramTable CommandLine::table() const
{
    return programTable();
}

bool CommandLine::read(const QCommandLineParser& parser)
{
    if (!host.read(parser))
        return fail(host.errorText());
    if (!host.resources.isEmpty() && !QFileInfo(host.resources).isDir())
        return fail(QStringLiteral("no such resources folder: %1").arg(host.resources));
    QString error;
    if (!ReleaseKey::areUsable(host.releaseKeys, error))
        return fail(error);
    return true;
}

bool CommandLine::fail(const QString& text)
{
    m_error = text;
    return false;
}
