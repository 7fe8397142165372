// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "support/NginxServer.h"

#include <QString>
#include <QStringList>

/// A server tree with a catalogue of many themes and their previews, served by nginx, and an
/// installation that has none of it.
class CheckWorld
{
public:
    explicit CheckWorld(const QString& folder);

    /// Publishes a catalogue and serves it. On false see errorText().
    bool publish(int themes);
    QString errorText() const { return m_server.errorText(); }

    /// Resets the installation, so that nothing is downloaded.
    void forget() const;

    /// Makes checks reach the server by another address, as of a proxy. Call it before the first.
    void setAddress(const QString& root);
    quint16 port() const;

    /// Returns the folder that the server serves.
    QString tree() const { return m_folder + QStringLiteral("/tree"); }
    /// Return the addresses of the thumbnails over HTTPS and HTTP/2, and the authority to trust.
    QStringList secureUrls() const;
    QString certificate() const { return m_folder + QStringLiteral("/certificate.pem"); }

    /// Return the addresses of all that a first check fetches, in order, and the names of their
    /// files below download().
    QStringList urls() const;
    QStringList files() const;
    QString download() const { return m_folder + QStringLiteral("/root"); }

    /// Returns how many requests the server has answered.
    int requests() const { return m_server.requests().size(); }

private:
    bool configureHttp2();

    QString m_folder;
    QString m_root; // address of the server
    int m_themes = 0;
    NginxServer m_server;
};
