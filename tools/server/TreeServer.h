#pragma once

#include "server/ServerLimits.h"

#include <QString>

#include <functional>
#include <memory>

/// Serves the files below one folder over HTTP on loopback, from threads of its own inside the
/// process. For demonstrations and tests: a production server is nginx or its like.
///
/// Parts (Range) and the conditions of caches (ETag, Last-Modified) are understood. Doubled slashes
/// in an address count as one, so a server root may end in "/" or not. Nothing outside the folder
/// is served, neither by ".." nor through a link. All calls on one thread, except that the access
/// log is called on the server's threads.
///
/// Slow, stalled and idle clients do not hold up others: see ServerLimits.
class TreeServer
{
public:
    /// One line per answered request: method, decoded path and status. What cannot be printed is
    /// replaced by question marks.
    using AccessLog = std::function<void(const QString& line)>;

    TreeServer();
    /// Stops the server.
    ~TreeServer();
    Q_DISABLE_COPY_MOVE(TreeServer)

    void setAccessLog(AccessLog log);
    /// Sets the limits that apply from the next start(). Connections are also limited to half of
    /// the file descriptors that the process may open.
    void setLimits(const ServerLimits& limits);

    /// Starts to serve `folder` on 127.0.0.1; port 0 takes a free one. False: errorText() says why.
    bool start(const QString& folder, quint16 port = 0);
    /// Ends all connections at once, and joins the threads.
    void stop();

    QString errorText() const;
    /// "http://127.0.0.1:PORT/"; empty while stopped.
    QString url() const;

private:
    class Private;
    std::unique_ptr<Private> d;
};
