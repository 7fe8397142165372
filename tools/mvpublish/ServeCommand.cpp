// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "ServeCommand.h"

#include "Arguments.h"
#include "Console.h"
#include "ExitStatus.h"
#include "server/ServeLoop.h"

int ServeCommand::run(const Arguments& arguments)
{
    QString error;
    if (!ServeLoop::run(arguments.operands.constFirst(), arguments.port, arguments.quiet, &error))
        return Console::fail(ExitStatus::failure, error);
    return ExitStatus::success;
}
