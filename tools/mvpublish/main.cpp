// mvpublish: for the people who run a resource server. Makes, checks and serves its tree.

#include "Arguments.h"
#include "BuildCommand.h"
#include "DiffCommand.h"
#include "LintCommand.h"
#include "NewCommand.h"
#include "Output.h"
#include "ServeCommand.h"

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
    if (arguments.command == QLatin1String("serve"))
        return ServeCommand::run(arguments);
    return BuildCommand::run(arguments);
}

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("mvpublish"));
    QCoreApplication::setApplicationVersion(QStringLiteral(MV_VERSION));

    Arguments arguments;
    if (!arguments.parse(application))
        return Output::fail(Output::exitFailure, arguments.errorText());
    return Output::finished(dispatch(arguments));
}
