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

#include <QCoreApplication>

namespace {

int dispatch(const Arguments& arguments)
{
    if (arguments.command == QLatin1String("new"))
        return NewCommand::run(arguments);
    if (arguments.command == QLatin1String("lint"))
        return LintCommand::run(arguments);
    if (arguments.command == QLatin1String("diff"))
        return DiffCommand::run(arguments);
    if (arguments.command == QLatin1String("retire"))
        return RetireCommand::run(arguments);
    if (arguments.command == QLatin1String("keygen"))
        return KeygenCommand::run(arguments);
    if (arguments.command == QLatin1String("sign"))
        return SignCommand::run(arguments);
    if (arguments.command == QLatin1String("serve"))
        return ServeCommand::run(arguments);
    if (arguments.command == QLatin1String("upload"))
        return UploadCommand::run(arguments);
    if (arguments.command == QLatin1String("verify"))
        return VerifyCommand::run(arguments);
    return BuildCommand::run(arguments);
}

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("mvpublish"));
    QCoreApplication::setApplicationVersion(QStringLiteral(MVRESOURCE_VERSION_STRING));

    Arguments arguments;
    if (!arguments.parse(application))
        return Console::fail(ExitStatus::failure, arguments.errorText());
    return Console::finished(dispatch(arguments), ExitStatus::failure);
}
