#pragma once

#include <QByteArray>
#include <QProcess>
#include <QString>
#include <QStringList>

/// What a console program left when it ended.
struct Outcome
{
    int status = -1; ///< exit status; -1 for a crash or no end
    QByteArray out;
    QByteArray err;

    /// Lines of standard output, without their ends.
    QStringList lines() const;
};

/// Runs console programs as processes of their own.
class ConsoleProgram
{
public:
    ConsoleProgram() = delete;

    static Outcome run(const QString& program, const QStringList& arguments,
                       const QString& workingDirectory = QString());
    /// Waits for the end of a program that runs.
    static Outcome end(QProcess& process);
    /// Sends a signal.
    static void signal(const QProcess& process, int number);
    /// The environment with a locale that knows all characters.
    static QProcessEnvironment utf8Environment();
};
