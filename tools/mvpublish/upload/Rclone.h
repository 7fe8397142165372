// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <QtGlobal>

#include <functional>

class QProcess;

/// Runs the program rclone, one command at a time, as a child process and never through a shell.
/// Belongs to the main thread, whose event loop runs while a command does.
///
/// The child belongs to a ChildGroup, so an interrupt at the terminal reaches only this program,
/// which decides when to pass it on.
class Rclone
{
public:
    /// Takes the user's options, which are appended to every command.
    explicit Rclone(QStringList options);
    Q_DISABLE_COPY_MOVE(Rclone)

    /// Returns the path of the program; empty if it is not installed.
    static QString program();

    /// Takes the bytes that the running command has sent, and will have sent at its end.
    using Progress = std::function<void(qint64 sentBytes, qint64 totalBytes)>;
    void setProgress(Progress progress);

    /// Runs a command to its end; `out`, if given, receives its standard output. On false see
    /// errorText(), status() and isCancelled().
    bool run(const QStringList& arguments, QByteArray* out = nullptr);
    /// Returns the exit status of the last command; -1 if it did not end by itself.
    int status() const { return m_status; }
    /// Returns what rclone says about its failure.
    QString errorText() const { return m_error; }

    /// Ends the running command, and refuses others, from now on or as soon as they are not
    /// protected any longer.
    void cancel();
    bool isCancelled() const { return m_isCancelled; }
    /// Protects the following commands from cancel(), or no longer.
    void setProtected(bool isProtected) { m_isProtected = isProtected; }

    /// The exit status for a folder that does not exist.
    static constexpr int folderNotFound = 3;

private:
    void readLog();
    void takeLine(const QByteArray& line);
    void terminate();
    bool end(bool hasStarted);

    QStringList m_options;
    Progress m_progress;
    QProcess* m_process = nullptr; // the running command
    QByteArray m_log;              // of standard error, the line that is not complete
    QString m_error;
    int m_status = -1;
    bool m_isCancelled = false;
    bool m_isProtected = false;
};
