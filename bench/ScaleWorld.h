// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "support/NginxServer.h"
#include "TrafficLog.h"

#include <QString>
#include <QStringList>

/// A publisher's tree of 300 themes with signed releases, the server of it, and a cache in front of
/// that, both nginx with the configurations of deploy/.
class ScaleWorld
{
public:
    explicit ScaleWorld(const QString& folder);

    /// Publishes the first release and starts the servers. On false see errorText().
    bool publish();
    /// Publishes a release in which one theme has another archive and another thumbnail.
    bool changeTheme();
    QString errorText() const { return m_error; }

    /// Returns the address of the cache, "http://127.0.0.1:PORT/".
    QString url() const { return m_cache.url(); }
    /// Returns the public key of the releases.
    QString key() const;
    /// Returns the folder of an installation that has a catalogue without items.
    QString installed() const { return m_folder + QStringLiteral("/installed"); }
    /// Returns the GUID of the theme that changes.
    static QString theme();
    /// Returns the number and size of the pictures that a first start fetches.
    static int pictures();
    static qint64 pictureBytes();
    /// Returns the number and size of the files that changeTheme() changes.
    static int changedFiles();
    static qint64 changedBytes();
    /// Return the sizes of the list of files, and of version file and catalogues.
    qint64 listBytes() const;
    qint64 catalogueBytes() const;

    TrafficLog& cacheLog() { return m_cacheLog; }
    TrafficLog& serverLog() { return m_serverLog; }

private:
    void writeSource() const;
    bool release();
    bool start();
    bool mvpublish(const QStringList& arguments);
    QString path(const char* name) const
    {
        return m_folder + QLatin1Char('/') + QLatin1String(name);
    }

    QString m_folder;
    QString m_error;
    NginxServer m_server;
    NginxServer m_cache;
    TrafficLog m_serverLog;
    TrafficLog m_cacheLog;
};
