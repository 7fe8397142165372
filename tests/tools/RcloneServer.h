// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QProcess>
#include <QString>
#include <QtGlobal>

/// A web space: rclone's own WebDAV server, which takes uploads into a folder, and serves it. It
/// writes a file that arrives over another one of its name: if the upload is killed, it leaves a
/// part of it.
class RcloneServer
{
public:
    RcloneServer() = default;
    ~RcloneServer();
    Q_DISABLE_COPY_MOVE(RcloneServer)

    /// Serves `folder`, which is created. On false see errorText().
    bool start(const QString& folder);
    void stop();
    QString errorText() const { return m_log; }

    quint16 port() const { return m_port; }
    /// Returns the root of the folder as rclone understands it.
    QString remote() const;

private:
    QProcess m_process;
    QString m_log;
    quint16 m_port = 0;
};
