// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "DemoCommandLine.h"

#include "browser/BrowserSkin.h"

#include <QCommandLineParser>
#include <QFileInfo>

namespace {

const QLatin1String scriptOption("script");
const QLatin1String screenshotOption("screenshot");
const QLatin1String skinOption("skin");
const QLatin1String firstStartOption("first-start");

} // namespace

ProgramTable DemoCommandLine::table() const
{
    ProgramTable table = CommandLine::table();
    table.name = QStringLiteral("mveditor-demo");
    table.description = QStringLiteral(
        "Shows mveditor at work, on the samples: serves them itself, and keeps everything that is "
        "written in a temporary folder. With --settings it works on those settings instead.");
    table.options.append(QCommandLineOption(
        scriptOption, QStringLiteral("drive the window by the steps in a file, then end"),
        QStringLiteral("FILE")));
    table.options.append(QCommandLineOption(
        screenshotOption,
        QStringLiteral("where pictures go; without a script: one of the window, then end"),
        QStringLiteral("DIR")));
    table.options.append(QCommandLineOption(
        skinOption, QStringLiteral("show the window in this skin"), QStringLiteral("NAME")));
    table.options.append(QCommandLineOption(
        firstStartOption, QStringLiteral("configure no server, as for a new user")));
    table.statuses.first().statuses[1].meaning =
        QStringLiteral("it could not start, or a step of the script failed");
    return table;
}

bool DemoCommandLine::read(const QCommandLineParser& parser)
{
    if (!CommandLine::read(parser))
        return false;
    scriptFile = parser.value(scriptOption);
    screenshotFolder = parser.value(screenshotOption);
    skin = parser.value(skinOption);
    isFirstStart = parser.isSet(firstStartOption);
    if (!skin.isEmpty() && !BrowserSkin::names().contains(skin))
        return fail(QStringLiteral("no such skin: %1").arg(skin));
    if (!scriptFile.isEmpty() && !QFileInfo(scriptFile).isFile())
        return fail(QStringLiteral("no such script: %1").arg(scriptFile));
    if (showsSamples() && !host.server.isEmpty())
        return fail(
            QStringLiteral("the demo brings a server of its own; --server needs --settings, too"));
    return true;
}
