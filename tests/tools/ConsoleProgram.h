// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>
#include <QProcess>
#include <QString>
#include <QStringList>

/// The outcome of a console program.
struct Outcome
{
    int status = -1; ///< exit status; -1 for a crash or a timeout
    QByteArray out;  ///< with the line ends "\n" on every system, as `err`
    QByteArray err;

    /// Returns the lines of standard output, without line ends.
    QStringList lines() const;
};

/// Runs console programs as separate processes.
class ConsoleProgram
{
public:
    ConsoleProgram() = delete;

    static Outcome run(const QString& program, const QStringList& arguments,
                       const QString& workingDirectory = QString());
    /// Runs a program whose standard input is `input`.
    static Outcome runWithInput(const QString& program, const QStringList& arguments,
                                const QByteArray& input);
    /// Waits for a running program to end. With merged channels, `out` has what it wrote to both.
    static Outcome end(QProcess& process);
    /// Returns whether a signal can make a program end in an orderly way.
#ifdef Q_OS_WIN
    static constexpr bool hasSignals = false;
#else
    static constexpr bool hasSignals = true;
#endif
    /// Sends a signal. On Windows, which has none, ends the program at once.
    static void signal(QProcess& process, int number);
    /// Returns the environment with a locale that covers all characters.
    static QProcessEnvironment utf8Environment();
};
