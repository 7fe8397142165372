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
    QByteArray out;
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
    /// Waits for a running program to end.
    static Outcome end(QProcess& process);
    /// Sends a signal.
    static void signal(const QProcess& process, int number);
    /// Returns the environment with a locale that covers all characters.
    static QProcessEnvironment utf8Environment();
};
