#pragma once

#include "ConsoleProgram.h"
#include "VirtualDisplay.h"

#include <QProcess>
#include <QString>
#include <QStringList>

class EditorWorld;
class RealInput;

/// The editor as a process of its own, on a virtual display. The demo's program drives it by a
/// script; without one it is the editor's own.
class Editor
{
public:
    explicit Editor(const EditorWorld& world);

    /// That of a user's session with a home of its own, on the virtual display.
    static QProcessEnvironment environment(const EditorWorld& world);
    void setVariable(const QString& name, const QString& value);
    /// Runs a script to its end. The pace of downloads is that of tests.
    Outcome run(const QString& script, bool online = true);
    /// Runs with these options and no script.
    Outcome runBare(const QStringList& options);
    /// Runs the demo's program with these options.
    Outcome runDemo(const QStringList& options);
    /// Starts a script; outcome() waits for its end.
    void start(const QString& script, bool online = true);
    Outcome outcome();
    /// Starts a script; whoever reads the output ends after the first line of it.
    void startWithoutReader(const QString& script);
    /// Starts it with these options and no script, for `input()`.
    void startBare(const QStringList& options);
    /// Mouse and keyboard of its display.
    static RealInput& input();
    bool hasEnded();
    /// Ends it as a crash would.
    void kill();

private:
    QStringList scriptArguments(const QString& script, bool online) const;

    const EditorWorld& m_world;
    QProcess m_process;
    QProcessEnvironment m_environment;
};

/// Fails the test with all that the editor printed, unless it ended well.
#define VERIFY_ENDED_WELL(editorRun)                                                               \
    do {                                                                                           \
        const Outcome& ended = (editorRun);                                                        \
        QVERIFY2(ended.status == 0, (ended.out + ended.err).constData());                          \
    } while (false)
