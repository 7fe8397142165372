// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

// mvpublish: creates, signs, checks, serves and uploads the tree of a resource server, for its
// operators.

#include "Arguments.h"
#include "BuildCommand.h"
#include "Console.h"
#include "DiffCommand.h"
#include "ExitStatus.h"
#include "host/MvVersion.h"
#include "KeygenCommand.h"
#include "LintCommand.h"
#include "NewCommand.h"
#include "RetireCommand.h"
#include "ServeCommand.h"
#include "SignCommand.h"
#include "UploadCommand.h"
#include "VerifyCommand.h"
#include "WatchCommand.h"

#include <QCoreApplication>

namespace {

struct NamedCommand
{
    const char* name;
    int (*run)(const Arguments& arguments);
};

const NamedCommand commands[] = {
    {"new", &NewCommand::run},       {"build", &BuildCommand::run},   {"watch", &WatchCommand::run},
    {"retire", &RetireCommand::run}, {"keygen", &KeygenCommand::run}, {"sign", &SignCommand::run},
    {"verify", &VerifyCommand::run}, {"lint", &LintCommand::run},     {"diff", &DiffCommand::run},
    {"serve", &ServeCommand::run},
};

int dispatch(const Arguments& arguments)
{
    for (const NamedCommand& command : commands) {
        if (arguments.command == QLatin1String(command.name))
            return command.run(arguments);
    }
    return UploadCommand::run(arguments);
}

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("mvpublish"));
    QCoreApplication::setApplicationVersion(QStringLiteral(MVRESOURCE_VERSION_STRING));

    if (Arguments::asksForJson(QCoreApplication::arguments()))
        Console::reportFailuresAsJson(); // even if the other arguments are invalid
    Arguments arguments;
    if (!arguments.parse(application))
        return Console::fail(ExitStatus::failure, arguments.errorText());
    return Console::finished(dispatch(arguments), ExitStatus::failure);
}
