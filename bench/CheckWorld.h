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

    /// Return the addresses of all that a first check fetches, in order, and the names of their
    /// files below download().
    QStringList urls() const;
    QStringList files() const;
    QString download() const { return m_folder + QStringLiteral("/root"); }

    /// Returns how many requests the server has answered.
    int requests() const { return m_server.requests().size(); }

private:
    QString m_folder;
    int m_themes = 0;
    NginxServer m_server;
};
