// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

// mvserve: serves a resource server's tree on loopback for testing.

#include "HelpText.h"
#include "ProgramTable.h"
#include "server/ServeLoop.h"

#include <QCommandLineParser>
#include <QCoreApplication>

#include <cstdio>

namespace {

constexpr int exitFailure = 1;
constexpr int exitUsage = 2;

int fail(int status, const QString& text)
{
    std::fprintf(stderr, "mvserve: %s\n", text.toLocal8Bit().constData());
    return status;
}

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("mvserve"));
    QCoreApplication::setApplicationVersion(QStringLiteral(MV_VERSION));
    QCommandLineParser parser;
    parser.addOptions(programTable().allOptions());
    if (!parser.parse(application.arguments()))
        return fail(exitUsage, parser.errorText());
    if (parser.isSet(ProgramTable::helpOption()))
        HelpText::printAndExit(HelpText::ofProgram(programTable()));
    if (parser.isSet(ProgramTable::versionOption()))
        HelpText::printAndExit(HelpText::version());

    bool portOk = false;
    const ushort port = parser.value(QStringLiteral("port")).toUShort(&portOk);
    if (!portOk)
        return fail(exitUsage, QStringLiteral("--port takes a number from 0 to 65535"));
    if (parser.positionalArguments().size() != 1)
        return fail(exitUsage, QStringLiteral("name one folder to serve"));

    QString error;
    if (!ServeLoop::run(parser.positionalArguments().constFirst(), port,
                        parser.isSet(QStringLiteral("quiet")), &error))
        return fail(exitFailure, error);
    return 0;
}
