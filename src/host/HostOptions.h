// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "host/HostSettings.h"
#include "host/MvHostExport.h"

#include <QCommandLineOption>
#include <QList>
#include <QMap>
#include <QString>
#include <QStringList>

#include <optional>

class QCommandLineParser;

/// The command line options with which host programs override their settings: settings file, data
/// folder, server, folders, product parameters, releases, log.
///
///     HostOptions::addTo(parser);
///     parser.process(application);
///     HostOptions options;
///     if (!options.read(parser)) ...      // options.errorText()
///     hostSettings() = HostSettings::recommended();
///     if (!options.apply(&error)) ...
///
/// GUI thread only, as for writing the settings.
class MVHOST_EXPORT HostOptions
{
public:
    /// Returns the options, for a program that describes them itself.
    static QList<QCommandLineOption> options();
    /// Adds the options to a parser.
    static void addTo(QCommandLineParser& parser);

    /// Takes the values from a parser that has parsed the arguments. Accesses no files. On false
    /// see errorText().
    bool read(const QCommandLineParser& parser);
    /// Returns why read() failed; empty after a success.
    QString errorText() const { return m_error; }

    /// Reads the settings file into hostSettings(), then applies the other options. Keys without a
    /// policy set eRelease_Require. Returns false and explains in `error` (may be null) if the file
    /// is refused; then nothing has been changed.
    bool apply(QString* error) const;
    /// Writes the library's log to standard error with `verbose`, and drops it otherwise.
    void applyLog() const;
    /// Returns the absolute path of the download root: the given one, or "download" in
    /// HostSettings::dataLocation. Call it after apply().
    QString downloadRoot() const;
    /// Returns the installed resources that are used where neither options nor settings name any.
    QString defaultResources() const;

    QString settingsFile; ///< an INI file; empty: none
    /// The folder that HostSettings::dataLocation and HostSettings::appDataPath become, so that
    /// programs which are given the same one share downloads and favourites. Its "settings.ini", if
    /// there is one, is read without settingsFile, and its "resources" are the installed resources
    /// unless others are named. Empty: not given.
    QString data;
    QString server;                              ///< ends in "/"; empty: not given
    QString root;                                ///< download root; empty: not given
    QString resources;                           ///< installed resources; empty: not given
    QMap<QString, QString> params;               ///< product parameters to set, by key
    std::optional<EReleasePolicy> releasePolicy; ///< none: not given
    QStringList releaseKeys; ///< replace those of the settings; empty: none given
    bool verbose = false;    ///< see applyLog()

private:
    bool readServer(const QString& text);
    bool readParams(const QStringList& texts);
    bool readReleases(const QCommandLineParser& parser);
    QString settingsInUse() const;
    void applyData(HostSettings& settings) const;
    bool fail(const QString& text);

    QString m_error;
};
