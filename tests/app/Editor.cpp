// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "Editor.h"

#include "EditorWorld.h"
#include "gui/RealInput.h"
#include "support/CatalogueFiles.h"
#include "support/TestIcons.h"

#include <QDir>
#include <QFile>

namespace {

const VirtualDisplay& display()
{
    static const VirtualDisplay theDisplay;
    return theDisplay;
}

} // namespace

Editor::Editor(const EditorWorld& world)
    : m_world(world)
    , m_environment(environment(world))
{
}

QProcessEnvironment Editor::environment(const EditorWorld& world)
{
    QProcessEnvironment variables = ConsoleProgram::utf8Environment();
    const QString home = world.folder() + QStringLiteral("/home");
    const QString runtime = home + QStringLiteral("/run");
    QDir().mkpath(runtime);
    QFile::setPermissions(runtime, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    TestIcons::hide(home);
    variables.insert(QStringLiteral("HOME"), home);
    variables.insert(QStringLiteral("XDG_CONFIG_HOME"), home + QStringLiteral("/.config"));
    variables.insert(QStringLiteral("XDG_RUNTIME_DIR"), runtime);
    // Without this a session bus would be started for the display and outlive the test.
    variables.insert(QStringLiteral("DBUS_SESSION_BUS_ADDRESS"),
                     QStringLiteral("unix:path=") + runtime + QStringLiteral("/bus"));
    variables.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("xcb"));
    variables.insert(QStringLiteral("DISPLAY"), display().name());
    return variables;
}

void Editor::setVariable(const QString& name, const QString& value)
{
    m_environment.insert(name, value);
}

QStringList Editor::scriptArguments(const QString& script, bool online) const
{
    const QString file = m_world.folder() + QStringLiteral("/script.txt");
    CatalogueFiles::write(file, "pace 1\n" + script.toUtf8());
    return m_world.arguments(online)
        + QStringList{QStringLiteral("--script"), file, QStringLiteral("--screenshot"),
                      m_world.folder() + QStringLiteral("/pictures")};
}

void Editor::start(const QString& script, bool online)
{
    m_process.setProcessEnvironment(m_environment);
    m_process.start(QStringLiteral(MVEDITOR_DEMO_PROGRAM), scriptArguments(script, online));
}

Outcome Editor::outcome()
{
    return ConsoleProgram::end(m_process);
}

void Editor::startWithoutReader(const QString& script)
{
    // Report the editor's exit status; a shell pipeline's would be that of its last program.
    const QString pipe =
        QStringLiteral("{ \"$0\" \"$@\"; echo $? >\"$STATUS\"; } 2>&1 | head -n 1 >/dev/null; "
                       "exit \"$(cat \"$STATUS\")\"");
    m_environment.insert(QStringLiteral("STATUS"), m_world.folder() + QStringLiteral("/status"));
    m_process.setProcessEnvironment(m_environment);
    m_process.start(QStringLiteral("/bin/sh"),
                    QStringList{QStringLiteral("-c"), pipe, QStringLiteral(MVEDITOR_DEMO_PROGRAM)}
                        + scriptArguments(script, true));
}

bool Editor::hasEnded()
{
    return m_process.state() == QProcess::NotRunning;
}

void Editor::kill()
{
    m_process.kill();
    m_process.waitForFinished();
}

Outcome Editor::run(const QString& script, bool online)
{
    start(script, online);
    return outcome();
}

Outcome Editor::runBare(const QStringList& options)
{
    startBare(options);
    return outcome();
}

Outcome Editor::runDemo(const QStringList& options)
{
    m_process.setProcessEnvironment(m_environment);
    m_process.start(QStringLiteral(MVEDITOR_DEMO_PROGRAM), options);
    return outcome();
}

void Editor::startBare(const QStringList& options)
{
    m_process.setProcessEnvironment(m_environment);
    m_process.start(QStringLiteral(MVEDITOR_PROGRAM), options);
}

RealInput& Editor::input()
{
    static RealInput theInput(display().name());
    return theInput;
}
