#include "ServeCommand.h"

#include "Arguments.h"
#include "Output.h"
#include "server/ServeLoop.h"

int ServeCommand::run(const Arguments& arguments)
{
    QString error;
    if (!ServeLoop::run(arguments.operands.constFirst(), arguments.port, arguments.quiet, &error))
        return Output::fail(Output::exitFailure, error);
    return Output::exitSuccess;
}
