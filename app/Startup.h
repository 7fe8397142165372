// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

class CommandLine;
class Preferences;

/// Starts the library in the required order: host settings, catalogue, download root, loading. One
/// object per process.
class Startup
{
public:
    /// Sets the log and the default host settings.
    static void applyDefaults(const CommandLine& commandLine);
    /// Reads the settings needed before a window is created. On false see errorText().
    bool readSettings(const CommandLine& commandLine);
    /// Takes the user's choices that the command line has not made.
    void takePreferences(const Preferences& preferences, const CommandLine& commandLine);
    /// Opens the catalogue, for which the skin must be known. On false see errorText().
    bool openCatalogue(const QString& skin);
    QString errorText() const { return m_error; }
    /// Returns the user's download folder if it cannot be used, and the usual one is instead.
    QString unavailableFolder() const { return m_unavailable; }

private:
    QString m_root;
    QString m_unavailable;
    QString m_error;
};
