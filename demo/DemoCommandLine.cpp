// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "DemoCommandLine.h"

#include <QCommandLineParser>
#include <QFileInfo>

namespace {

const char description[] =
    R"(Shows mveditor at work, on the samples: serves them itself, and keeps everything that is
written in a temporary folder. With --settings it works on those settings instead.

Exit status: 0 success; 1 it could not start, or a step of the script failed; 2 bad arguments.)";

const QLatin1String scriptOption("script");
const QLatin1String screenshotOption("screenshot");

} // namespace

void DemoCommandLine::addOptions(QCommandLineParser& parser) const
{
    CommandLine::addOptions(parser);
    parser.setApplicationDescription(QString::fromLatin1(description));
    parser.addOption({scriptOption,
                      QStringLiteral("drive the window by the steps in a file, then end"),
                      QStringLiteral("FILE")});
    parser.addOption(
        {screenshotOption,
         QStringLiteral("where pictures go; without a script: one of the window, then end"),
         QStringLiteral("DIR")});
}

bool DemoCommandLine::read(const QCommandLineParser& parser)
{
    if (!CommandLine::read(parser))
        return false;
    scriptFile = parser.value(scriptOption);
    screenshotFolder = parser.value(screenshotOption);
    if (!scriptFile.isEmpty() && !QFileInfo(scriptFile).isFile())
        return fail(QStringLiteral("no such script: %1").arg(scriptFile));
    if (showsSamples() && !host.server.isEmpty())
        return fail(
            QStringLiteral("the demo brings a server of its own; --server needs --settings, too"));
    return true;
}
