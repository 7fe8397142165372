#pragma once

#include "ConsoleProgram.h"

#include <QMap>

/// The console host with folders and settings of its own, new with every object.
///
/// It is run with --settings and --root; the catalogue is what a test puts into installed(), or the
/// samples' installation.
class Mvres
{
public:
    Mvres();

    /// Holds everything below.
    QString base() const { return m_base; }
    QString root() const { return m_base + QStringLiteral("/root"); }
    QString data() const { return m_base + QStringLiteral("/data"); }
    /// The application's resources.
    QString installed() const { return m_installed; }
    /// The samples' installation is the application's resources from now on.
    void useSamples();

    /// A line of the settings file: "params/hasMV".
    void set(const char* key, const QString& value);
    void setServer(const QString& url) { set("params/url_themeRootDir", url); }

    /// --settings, --root and these.
    QStringList arguments(const QStringList& own) const;
    Outcome run(const QStringList& own) const;
    /// The same within 40 seconds and, where no sanitizer needs it all, a gigabyte of memory: for
    /// what could be waited for or read without an end. Status 124: the time was over.
    Outcome runLimited(const QStringList& own) const;
    void start(QProcess& process, const QStringList& own) const;

    /// The files of the download tree, relative to the root.
    QStringList downloaded() const;
    /// A file of the config half of the download tree; the name begins with "/".
    QString downloadedFile(const QString& name) const;

    static QString program();
    static QString samples();

private:
    void writeSettings() const;
    QString settingsFile() const { return m_base + QStringLiteral("/settings.ini"); }

    QString m_base;
    QString m_installed;
    QMap<QString, QString> m_settings;
};
