#pragma once

#include <QString>

#include <memory>

class CommandLine;
class DemoWorld;

/// Starts the library in the required order: host settings, catalogue, download root, loading. One
/// object per process. It must outlive the catalogue, which writes into a demo's folder when the
/// process ends: make it a static object, created before the first call of MVThemeMgr::init().
class Startup
{
public:
    Startup();
    ~Startup();
    Q_DISABLE_COPY_MOVE(Startup)

    /// Reads the settings needed before a window is created. On false see errorText().
    bool readSettings(const CommandLine& commandLine);
    /// Opens the catalogue, for which the skin must be known. On false see errorText().
    bool openCatalogue(const QString& skin);
    QString errorText() const { return m_error; }

    /// Returns the path of the user's preferences.
    QString preferencesFile() const;

private:
    bool fail(const QString& text);

    std::unique_ptr<DemoWorld> m_demo;
    QString m_root;
    QString m_error;
};
