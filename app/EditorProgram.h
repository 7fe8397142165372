// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "Startup.h"

#include <QString>

class CatalogueUpdate;
class CommandLine;
class MainWindow;
struct HostSettings;

/// Runs the editor from its command line to its exit status: settings, catalogue, window and
/// background check. Programs that add to the editor derive from it. Main thread only; one object
/// per process.
class EditorProgram
{
public:
    static constexpr int exitFailure = 1; ///< it could not start
    static constexpr int exitUsage = 2;   ///< bad arguments

    /// `commandLine` must live as long as this object.
    explicit EditorProgram(CommandLine& commandLine);
    virtual ~EditorProgram();
    Q_DISABLE_COPY_MOVE(EditorProgram)

    /// Runs the program, with application objects of its own, and returns its exit status.
    int run(int& argc, char** argv);

protected:
    /// Changes the default settings, which a settings file and options override. Called once, after
    /// the command line has been read. Returns false and sets `error` to refuse the start.
    virtual bool prepare(HostSettings& settings, QString& error);
    /// Returns the path of the user's preferences. Called after prepare().
    virtual QString preferencesFile() const;
    /// Shows the window, starts the check and handles events until the window is closed. Returns
    /// the exit status.
    virtual int exec(MainWindow& window, CatalogueUpdate& check);

    /// Prints why the program ends, and returns exitFailure.
    int refuse(const QString& reason) const;

private:
    int readSettings(int& argc, char** argv);
    int openWindow(int& argc, char** argv);
    void say(const QString& text) const;

    CommandLine& m_commandLine;
    Startup m_startup;
    QString m_name; // of the program, as it was started
};
