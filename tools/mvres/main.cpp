// mvres: a resource manager host without a window, for scripts and for server operators.

#include "Arguments.h"
#include "BuiltinCommand.h"
#include "CheckCommand.h"
#include "Console.h"
#include "ExitStatus.h"
#include "FavouriteCommand.h"
#include "FetchCommand.h"
#include "ListCommand.h"
#include "PathsCommand.h"
#include "Session.h"
#include "ShowCommand.h"

#include <QCoreApplication>

namespace {

int dispatch(const Arguments& arguments, const Session& session)
{
    if (arguments.command == QLatin1String("list"))
        return ListCommand::run(arguments);
    if (arguments.command == QLatin1String("show"))
        return ShowCommand::run(arguments);
    if (arguments.command == QLatin1String("fetch"))
        return FetchCommand::run(arguments);
    if (arguments.command == QLatin1String("favourite"))
        return FavouriteCommand::run(arguments);
    if (arguments.command == QLatin1String("check"))
        return CheckCommand::run(arguments);
    if (arguments.command == QLatin1String("builtin"))
        return BuiltinCommand::run(arguments);
    return PathsCommand::run(arguments, session);
}

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("mvres"));
    QCoreApplication::setApplicationVersion(QStringLiteral(MV_VERSION));

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
