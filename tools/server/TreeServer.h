// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "server/ServerLimits.h"

#include <QString>

#include <functional>
#include <memory>

/// Serves the files below one folder over HTTP on loopback, on separate threads of the process. For
/// demonstrations and tests; production servers use nginx or the like.
///
/// Supports ranges and conditional requests (ETag, Last-Modified). Doubled slashes in an address
/// count as one, so a server root may or may not end in "/". Nothing outside the folder is served,
/// neither by ".." nor through a link. Make all calls on one thread; the access log is called on
/// the server's threads.
///
/// Slow, stalled and idle clients do not hold up others: see ServerLimits.
class TreeServer
{
public:
    /// Receives one line per answered request: method, decoded path and status. Unprintable
    /// characters are replaced by question marks.
    using AccessLog = std::function<void(const QString& line)>;

    TreeServer();
    /// Stops the server.
    ~TreeServer();
    Q_DISABLE_COPY_MOVE(TreeServer)

    void setAccessLog(AccessLog log);
    /// Sets the limits that apply from the next start(). Connections are also limited to half of
    /// the file descriptors that the process may open.
    void setLimits(const ServerLimits& limits);

    /// Starts serving `folder` on 127.0.0.1; port 0 picks a free one. On false see errorText().
    bool start(const QString& folder, quint16 port = 0);
    /// True: requests that come from now on wait for their answers, until false or stop(), so that
    /// clients meet a server that is silent. False by default.
    void setHeld(bool isHeld);
    /// Ends all connections at once, and joins the threads.
    void stop();

    QString errorText() const;
    /// Returns "http://127.0.0.1:PORT/"; empty while stopped.
    QString url() const;

private:
    class Private;
    std::unique_ptr<Private> d;
};
