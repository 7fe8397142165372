// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QProcessEnvironment>
#include <QString>
#include <QStringList>

/// The real rclone behind a script of its name, which notes every command and stops at one of them.
class WatchedRclone
{
public:
    /// Writes the script into `folder`, which is recreated.
    explicit WatchedRclone(QString folder);

    /// Stops before the command that copies the file of that name.
    void stopAt(const QString& name) const;
    /// Returns whether it has stopped.
    bool hasStopped() const;
    /// Lets it go on.
    void goOn() const;

    /// Returns the arguments of all commands so far.
    QStringList commands() const;
    /// Returns the names of the files that local folders have sent so far.
    QStringList sent() const;
    /// Returns an environment in which programs find the script as rclone.
    QProcessEnvironment environment() const;

private:
    QString file(const char* name) const;
    QStringList lines(const char* name) const;

    QString m_folder;
};
