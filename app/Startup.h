#pragma once

#include <QString>

#include <memory>

class CommandLine;
class DemoWorld;

/// The library's start, in the order that it asks for: host settings, catalogue, download root,
/// loading. One object per process. It must outlive the catalogue, which writes into a demo's
/// folder when the process ends: a static object, made before MVThemeMgr::init() is called first.
class Startup
{
public:
    Startup();
    ~Startup();
    Q_DISABLE_COPY_MOVE(Startup)

    /// Reads what must be known before a window is created. False: errorText() says why.
    bool readSettings(const CommandLine& commandLine);
    /// Opens the catalogue, for which the skin must be known. False: errorText().
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
