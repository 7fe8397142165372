// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

// mvserve: serves a resource server's tree on loopback for testing.

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
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral(
        "Serves the tree of a resource server on 127.0.0.1 until it is interrupted."));
    const QCommandLineOption helpOption({QStringLiteral("h"), QStringLiteral("help")},
                                        QStringLiteral("print this help"));
    parser.addPositionalArgument(QStringLiteral("TREE"), QStringLiteral("folder to serve"));
    const QCommandLineOption portOption(QStringLiteral("port"),
                                        QStringLiteral("port to listen on; a free one by default"),
                                        QStringLiteral("N"), QStringLiteral("0"));
    const QCommandLineOption quietOption(QStringLiteral("quiet"),
                                         QStringLiteral("do not print requests"));
    parser.addOptions({helpOption, portOption, quietOption});
    if (!parser.parse(application.arguments()))
        return fail(exitUsage, parser.errorText());
    if (parser.isSet(helpOption))
        parser.showHelp();

    bool portOk = false;
    const ushort port = parser.value(portOption).toUShort(&portOk);
    if (!portOk)
        return fail(exitUsage, QStringLiteral("--port takes a number from 0 to 65535"));
    if (parser.positionalArguments().size() != 1)
        return fail(exitUsage, QStringLiteral("name one folder to serve"));

    QString error;
    if (!ServeLoop::run(parser.positionalArguments().constFirst(), port, parser.isSet(quietOption),
                        &error))
        return fail(exitFailure, error);
    return 0;
}
