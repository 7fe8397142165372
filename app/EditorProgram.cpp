// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "EditorProgram.h"

#include "AppLanguage.h"
#include "AppLook.h"
#include "AppStyle.h"
#include "CommandLine.h"
#include "download/CatalogueUpdate.h"
#include "host/HostSettings.h"
#include "host/MvVersion.h"
#include "host/ProductParam.h"
#include "MainWindow.h"
#include "Preferences.h"
#include "SettingsControls.h"

#include <QApplication>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>
#include <QTimer>
#include <QVector>
#include <QWidget>

#include <csignal>
#include <cstdio>

namespace {

/// Environment variables that Qt reads only while an application starts. The user's own take
/// precedence.
class StartVariables
{
public:
    void set(const char* name, const QByteArray& value)
    {
        if (qEnvironmentVariableIsSet(name))
            return;
        qputenv(name, value);
        m_own.append(name);
    }
    /// Programs opened by the window do without them.
    void unset()
    {
        for (const char* name : qAsConst(m_own))
            qunsetenv(name);
        m_own.clear();
    }

private:
    QVector<const char*> m_own;
};

} // namespace

EditorProgram::EditorProgram(CommandLine& commandLine)
    : m_commandLine(commandLine)
{
}

EditorProgram::~EditorProgram() = default;

int EditorProgram::run(int& argc, char** argv)
{
    // A reader of the output that quits first must not end the window.
#ifdef SIGPIPE // not on Windows
    std::signal(SIGPIPE, SIG_IGN);
#endif
    m_name = QFileInfo(QFile::decodeName(argv[0])).fileName();
    QCoreApplication::setApplicationName(QStringLiteral("mveditor"));
    QCoreApplication::setApplicationVersion(QStringLiteral(MVRESOURCE_VERSION_STRING));
#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0) // Qt 6 always does
    QCoreApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
    QCoreApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
#endif
    const int status = readSettings(argc, argv);
    return status != 0 ? status : openWindow(argc, argv);
}

/// Reads command line and settings, which are needed before a window can be created.
int EditorProgram::readSettings(int& argc, char** argv)
{
    const QCoreApplication early(argc, argv);
    if (!m_commandLine.parse(QCoreApplication::arguments())) {
        say(m_commandLine.errorText());
        return exitUsage;
    }
    m_startup.applyDefaults(m_commandLine);
    QString error;
    if (!prepare(hostSettings(), error))
        return refuse(error);
    return m_startup.readSettings(m_commandLine) ? 0 : refuse(m_startup.errorText());
}

int EditorProgram::openWindow(int& argc, char** argv)
{
    Preferences preferences(preferencesFile());
    if (!preferences.problem().isEmpty())
        say(preferences.problem());
    StartVariables variables;
    constexpr double wholeScale = 100.0;
    if (preferences.scale() > 0)
        variables.set("QT_SCALE_FACTOR", QByteArray::number(preferences.scale() / wholeScale));
    // The window draws nothing with OpenGL, whose drivers take half of the memory and a third of
    // the start.
    variables.set("QT_XCB_GL_INTEGRATION", "none");
    QApplication application(argc, argv);
    QWidget().winId(); // for the first window Qt reads the last of them
    variables.unset();
    QApplication::setStyle(new AppStyle);
    m_startup.takePreferences(preferences, m_commandLine);
    if (!m_startup.openCatalogue(preferences.skin()))
        return refuse(m_startup.errorText());
    AppLanguage::install(preferences.language());
    AppLook::apply(preferences.skin());

    CatalogueUpdate check;
    MainWindow window(preferences, check);
    window.settings()->setGiven(
        {!m_commandLine.host.server.isEmpty(), !m_commandLine.host.root.isEmpty()},
        m_startup.unavailableFolder());
    if (!m_commandLine.project.isEmpty()) {
        QTimer::singleShot(0, &window, [&] { window.openProject(m_commandLine.project); });
    }
    const int status = exec(window, check);
    check.shutDown();
    return status;
}

bool EditorProgram::prepare(HostSettings& /*settings*/, QString& /*error*/)
{
    return true;
}

QString EditorProgram::preferencesFile() const
{
    return QStandardPaths::writableLocation(QStandardPaths::AppConfigLocation)
        + QStringLiteral("/preferences.json");
}

int EditorProgram::exec(MainWindow& window, CatalogueUpdate& check)
{
    window.show();
    if (!ProductParam::text(ProductParam::serverRoot).isEmpty())
        check.startSpread();
    return QApplication::exec();
}

int EditorProgram::refuse(const QString& reason) const
{
    say(reason);
    return exitFailure;
}

void EditorProgram::say(const QString& text) const
{
    std::fprintf(stderr, "%s: %s\n", m_name.toLocal8Bit().constData(),
                 text.toLocal8Bit().constData());
}
