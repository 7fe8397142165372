// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "CommandLine.h"

#include "download/ReleaseKey.h"

#include <QCommandLineParser>
#include <QFileInfo>

namespace {

const char description[] =
    R"(Browses, previews, collects, downloads and applies the resources of a slideshow editor.

Exit status: 0 success; 1 it could not start; 2 bad arguments.)";

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
    parser.addPositionalArgument(QStringLiteral("PROJECT"),
                                 QStringLiteral("a project file to open, see README.md"),
                                 QStringLiteral("[PROJECT]"));
    HostOptions::addTo(parser);
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
