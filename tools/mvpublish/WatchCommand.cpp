// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "WatchCommand.h"

#include "Arguments.h"
#include "BuildCommand.h"
#include "Console.h"
#include "ExitStatus.h"
#include "Interrupt.h"
#include "SourceWatch.h"

#include <QEventLoop>
#include <QFileInfo>

namespace {

void begin(SourceWatch& watch)
{
    const int unwatched = watch.begin();
    if (unwatched > 0)
        Console::note(
            QStringLiteral("warning: %1 of the source's files and folders cannot be watched; the "
                           "system limits their number (fs.inotify.max_user_watches)")
                .arg(unwatched));
}

} // namespace

int WatchCommand::run(const Arguments& arguments)
{
    const QString source = arguments.operands.constFirst();
    // The first one only after the watch has begun, so that no change is missed.
    const Interrupt interrupt;
    QEventLoop loop;
    SourceWatch watch(source);
    QObject::connect(&interrupt, &Interrupt::requested, &loop, [&loop] { loop.exit(); });
    if (QFileInfo(source).isDir())
        begin(watch);
    const int first = BuildCommand::run(arguments);
    if (first == ExitStatus::failure)
        return first; // what does not depend on the source
    Console::print(QStringLiteral("watching %1").arg(source));
    QObject::connect(&watch, &SourceWatch::changed, &loop, [&] {
        if (!QFileInfo(source).isDir()) {
            loop.exit(Console::fail(ExitStatus::failure, QStringLiteral("%1 is gone").arg(source)));
            return;
        }
        begin(watch);
        BuildCommand::run(arguments);
    });
    return loop.exec();
}
