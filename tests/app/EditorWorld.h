// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "support/FaultServer.h"

#include <QByteArray>
#include <QMap>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

#include <functional>
#include <mutex>

/// A server, an installation, a download root and a home for the editor, recreated for every test.
///
/// Themes are identified by name. Each uses the filter "Sepia" and has a thumbnail, an animated
/// preview, a config file and one resource.
class EditorWorld
{
public:
    /// Called for every request with its number, starting at 1; returns true if it has answered.
    /// A check begins with the question for a release.
    using Fault = std::function<bool(HttpExchange&, int number)>;

    using Tree = QMap<QString, QByteArray>; ///< files by path below the server root

    EditorWorld();
    ~EditorWorld();
    Q_DISABLE_COPY_MOVE(EditorWorld)

    /// Sets what the server publishes: these themes, the filter and a background.
    void publish(const QStringList& themes);
    /// Publishes these themes as a release, with other contents for some files:
    /// "config/Themes/alpha/theme.zip".
    void publishRelease(const QStringList& themes, qint64 serial, const Tree& changed = {});
    /// Publishes an existing server tree.
    void publishTree(const QString& folder);
    /// Installs the catalogue of these themes with their previews, but without the files needed to
    /// apply them.
    void install(const QStringList& themes) const;
    /// Fills the download tree as if these themes had been published, checked and fetched.
    void fillRoot(const QStringList& themes);
    /// Deletes previews from the download tree.
    void removePreviews(const QStringList& themes) const;
    void setFault(const Fault& fault);

    FaultServer& server() { return m_server; }
    QString folder() const { return m_folder.path(); }
    QString root() const { return folder() + QStringLiteral("/root"); }
    /// Returns the folder that holds the editor's favourites.
    QString data() const { return folder() + QStringLiteral("/data"); }
    QString preferencesFile() const;
    /// Returns the path, below root(), of the file needed to apply a theme.
    QString themeFile(const QString& theme) const;
    static QString themeGuid(const QString& theme);

    /// Returns the options for running the editor here; when offline, the server refuses
    /// connections.
    QStringList arguments(bool online = true) const;
    /// Leaves an option out of arguments(): "--server", "--root".
    void leaveOut(const QString& option) { m_leftOut.append(option); }
    void writeSettings(int stallTimeoutMs = 10000) const;

private:
    static Tree previews(const QStringList& themes);
    static Tree files(const QStringList& themes);
    static Tree catalogue(const QStringList& themes);
    void answer(HttpExchange& exchange);

    QTemporaryDir m_folder;
    QStringList m_leftOut;
    mutable std::mutex m_mutex; // guards m_tree, m_fault and m_requests
    Tree m_tree;
    Fault m_fault;
    int m_requests = 0;
    FaultServer m_server;
};
