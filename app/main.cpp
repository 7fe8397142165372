// mveditor: a miniature slideshow editor. It embeds the resource lists as an editor would, and
// serves host developers as a template.

#include "AppLanguage.h"
#include "AppLook.h"
#include "CommandLine.h"
#include "download/CatalogueUpdate.h"
#include "MainWindow.h"
#include "Preferences.h"
#include "script/ScriptRun.h"
#include "Startup.h"

#include <QApplication>
#include <QStyleFactory>

#include <csignal>
#include <cstdio>

namespace {

constexpr int exitFailure = 1;
constexpr int exitUsage = 2;
constexpr char scaleVariable[] = "QT_SCALE_FACTOR";

void say(const QString& text)
{
    std::fprintf(stderr, "mveditor: %s\n", text.toLocal8Bit().constData());
}

int fail(int status, const QString& text)
{
    say(text);
    return status;
}

/// Sets the scale, which Qt reads only while an application starts.
void applyScale(int percent)
{
    constexpr double whole = 100.0;
    if (percent > 0)
        qputenv(scaleVariable, QByteArray::number(percent / whole));
}

/// Reads command line and settings, which are needed before a window can be created.
int prepare(int& argc, char** argv, CommandLine& commandLine, Startup& startup)
{
    const QCoreApplication early(argc, argv);
    if (!commandLine.parse(QCoreApplication::arguments()))
        return fail(exitUsage, commandLine.errorText());
    if (!startup.readSettings(commandLine))
        return fail(exitFailure, startup.errorText());
    return 0;
}

int run(int& argc, char** argv, const CommandLine& commandLine, Startup& startup)
{
    Preferences preferences(startup.preferencesFile());
    if (!preferences.problem().isEmpty())
        say(preferences.problem());
    // QT_SCALE_FACTOR in the environment takes precedence.
    const bool ownScale = !qEnvironmentVariableIsSet(scaleVariable);
    if (ownScale)
        applyScale(preferences.scale());
    QApplication application(argc, argv);
    if (ownScale)
        qunsetenv(scaleVariable); // programs opened by the window have their own scale
    // The same on every platform, with all colours from the palette.
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    if (!startup.openCatalogue(preferences.skin()))
        return fail(exitFailure, startup.errorText());
    AppLanguage::install(preferences.language());
    AppLook::apply(preferences.skin());

    CatalogueUpdate check;
    int status = 0;
    {
        MainWindow window(preferences, check);
        ScriptRun script(window, check, commandLine);
        if (!script.isReady())
            return fail(exitFailure, script.errorText());
        window.show();
        check.start();
        script.start();
        status = QApplication::exec();
        if (script.hasFailed())
            status = exitFailure;
        check.shutDown();
    }
    return status;
}

} // namespace

int main(int argc, char** argv)
{
    // A reader of the output that quits first must not end the window.
    std::signal(SIGPIPE, SIG_IGN);
    QCoreApplication::setApplicationName(QStringLiteral("mveditor"));
    QCoreApplication::setApplicationVersion(QStringLiteral(MV_VERSION));
    QCoreApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
    QCoreApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
    CommandLine commandLine;
    // It outlives the catalogue, which saves favourites when the process ends.
    static Startup startup;
    const int status = prepare(argc, argv, commandLine, startup);
    return status != 0 ? status : run(argc, argv, commandLine, startup);
}
