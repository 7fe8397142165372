#pragma once

#include <QString>

class CommandLine;

/// The library's start, in the order that it asks for: host settings, catalogue, download root,
/// loading. One object per process.
class Startup
{
public:
    /// Sets the log and the host settings that apply where nothing else is said.
    static void applyDefaults(const CommandLine& commandLine);
    /// Reads what must be known before a window is created. False: errorText() says why.
    bool readSettings(const CommandLine& commandLine);
    /// Opens the catalogue, for which the skin must be known. False: errorText().
    bool openCatalogue(const QString& skin);
    QString errorText() const { return m_error; }

private:
    QString m_root;
    QString m_error;
};
