// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "ConsoleProgram.h"
#include "VirtualDisplay.h"

#include <QProcess>
#include <QString>
#include <QStringList>

class EditorWorld;
class RealInput;

/// The editor as a separate process on a virtual display. A script drives the demo's program;
/// without one the editor's own runs.
class Editor
{
public:
    explicit Editor(const EditorWorld& world);

    /// Returns the environment of a user session with its own home, on the virtual display.
    static QProcessEnvironment environment(const EditorWorld& world);
    void setVariable(const QString& name, const QString& value);
    /// Runs a script to its end, with downloads paced for tests.
    Outcome run(const QString& script, bool online = true);
    /// Runs the editor with these options and no script.
    Outcome runBare(const QStringList& options);
    /// Runs the demo's program with these options.
    Outcome runDemo(const QStringList& options);
    /// Starts a script; outcome() waits for its end.
    void start(const QString& script, bool online = true);
    Outcome outcome();
    /// Starts a script with its output piped to a reader that quits after the first line.
    void startWithoutReader(const QString& script);
    /// Starts the editor with these options and no script, to be driven by `input()`.
    void startBare(const QStringList& options);
    /// Returns the mouse and keyboard of the editor's display.
    static RealInput& input();
    bool hasEnded();
    /// Kills the editor, as a crash would.
    void kill();

private:
    QStringList scriptArguments(const QString& script, bool online) const;

    const EditorWorld& m_world;
    QProcess m_process;
    QProcessEnvironment m_environment;
};

/// Fails the test with everything the editor printed, unless it exited successfully.
#define VERIFY_ENDED_WELL(editorRun)                                                               \
    do {                                                                                           \
        const Outcome& ended = (editorRun);                                                        \
        QVERIFY2(ended.status == 0, (ended.out + ended.err).constData());                          \
    } while (false)
