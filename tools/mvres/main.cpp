// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

// mvres: a resource manager host without a window, for scripts and for server operators.

#include "Arguments.h"
#include "BuiltinCommand.h"
#include "CheckCommand.h"
#include "CleanCommand.h"
#include "Console.h"
#include "DuCommand.h"
#include "ExitStatus.h"
#include "FavouriteCommand.h"
#include "FetchCommand.h"
#include "host/MvVersion.h"
#include "ListCommand.h"
#include "NeedCommand.h"
#include "PathsCommand.h"
#include "RemoveCommand.h"
#include "SearchCommand.h"
#include "Session.h"
#include "ShowCommand.h"
#include "UpdateCommand.h"
#include "VerifyCommand.h"

#include <QCoreApplication>

namespace {

struct NamedCommand
{
    const char* name;
    int (*run)(const Arguments& arguments);
};

const NamedCommand commands[] = {
    {"list", &ListCommand::run},
    {"search", &SearchCommand::run},
    {"show", &ShowCommand::run},
    {"fetch", &FetchCommand::run},
    {"need", &NeedCommand::run},
    {"update", &UpdateCommand::run},
    {"verify", &VerifyCommand::run},
    {"remove", &RemoveCommand::run},
    {"du", &DuCommand::run},
    {"clean", &CleanCommand::run},
    {"favourite", &FavouriteCommand::run},
    {"check", &CheckCommand::run},
    {"builtin", &BuiltinCommand::run},
};

int dispatch(const Arguments& arguments, const Session& session)
{
    for (const NamedCommand& command : commands) {
        if (arguments.command == QLatin1String(command.name))
            return command.run(arguments);
    }
    return PathsCommand::run(arguments, session);
}

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("mvres"));
    QCoreApplication::setApplicationVersion(QStringLiteral(MVRESOURCE_VERSION_STRING));

    if (QCoreApplication::arguments().contains(QStringLiteral("--json")))
        Console::reportFailuresAsJson(); // even if the other arguments are invalid
    Arguments arguments;
    if (!arguments.parse(application))
        return Console::fail(ExitStatus::usage, arguments.errorText());
    Session session;
    if (!session.open(arguments))
        return Console::fail(ExitStatus::failure, session.errorText());
    if (!session.emptyText().isEmpty())
        Console::note(session.emptyText());
    return Console::finished(dispatch(arguments, session), ExitStatus::failure);
}
