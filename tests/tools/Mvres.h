// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "ConsoleProgram.h"

#include <QMap>

/// The console host with its own folders and settings, new with every object.
///
/// It runs with --settings and --root; the catalogue is what a test puts into installed(), or the
/// samples' installation.
class Mvres
{
public:
    Mvres();

    /// Returns the folder that holds everything below.
    QString base() const { return m_base; }
    QString root() const { return m_base + QStringLiteral("/root"); }
    QString data() const { return m_base + QStringLiteral("/data"); }
    /// Returns the folder of the application's resources.
    QString installed() const { return m_installed; }
    /// Makes the samples' installation the application's resources from now on.
    void useSamples();

    /// Sets a value of the settings file by its key: "params/hasMV".
    void set(const char* key, const QString& value);
    void setServer(const QString& url) { set("params/url_themeRootDir", url); }

    /// Returns --settings, --root and these arguments.
    QStringList arguments(const QStringList& own) const;
    Outcome run(const QStringList& own) const;
    /// Runs for at most 40 seconds and, unless a sanitizer needs more, in a gigabyte of memory, so
    /// that endless waiting or reading is caught. Status 124: the time was exceeded.
    Outcome runLimited(const QStringList& own) const;
    void start(QProcess& process, const QStringList& own) const;

    /// Returns the files of the download tree, relative to the root.
    QStringList downloaded() const;
    /// Returns a file's path in the config half of the download tree; the name begins with "/".
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
