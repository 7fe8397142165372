#include "server/TreeServer.h"

#include <QFile>
#include <QFileInfo>

#include <thread>

#include <httplib.h>

#include <sys/socket.h>

namespace {

/// httplib's own options let a second server bind the same port, and each would get a part of the
/// requests.
void keepPortToOneself(int socket)
{
    const int on = 1;
    ::setsockopt(socket, SOL_SOCKET, SO_REUSEADDR, &on, sizeof on);
}

} // namespace

class TreeServer::Private
{
public:
    std::unique_ptr<httplib::Server> server; // null while stopped
    std::thread thread;
    AccessLog log;
    QString errorText;
    int port = 0;
};

TreeServer::TreeServer()
    : d(std::make_unique<Private>())
{
}

TreeServer::~TreeServer()
{
    stop();
}

void TreeServer::setAccessLog(AccessLog log)
{
    d->log = std::move(log);
}

bool TreeServer::start(const QString& folder, quint16 port)
{
    stop();
    const QByteArray address = "127.0.0.1";
    auto server = std::make_unique<httplib::Server>();
    if (!QFileInfo(folder).isDir()
        || !server->set_mount_point("/", QFile::encodeName(folder).toStdString())) {
        d->errorText = QStringLiteral("%1 is not a folder").arg(folder);
        return false;
    }
    server->set_socket_options(&keepPortToOneself);
    server->set_keep_alive_max_count(1000000);
    server->set_keep_alive_timeout(1); // seconds; stop() waits that long for idle connections
    server->set_file_extension_and_mimetype_mapping("zip", "application/zip");
    if (d->log) {
        server->set_logger(
            [log = d->log](const httplib::Request& request, const httplib::Response& response) {
                log(QStringLiteral("%1 %2 %3")
                        .arg(QString::fromStdString(request.method),
                             QString::fromStdString(request.path))
                        .arg(response.status));
            });
    }
    const bool bound = port == 0 ? (d->port = server->bind_to_any_port(address.constData())) > 0
                                 : server->bind_to_port(address.constData(), port);
    if (!bound) {
        d->errorText = QStringLiteral("port %1 of 127.0.0.1 is not free").arg(port);
        return false;
    }
    if (port != 0)
        d->port = port;
    d->server = std::move(server);
    d->thread = std::thread([listening = d->server.get()] { listening->listen_after_bind(); });
    // stop() has no effect before the server listens.
    while (!d->server->is_running())
        std::this_thread::yield();
    return true;
}

void TreeServer::stop()
{
    if (!d->server)
        return;
    d->server->stop();
    d->thread.join();
    d->server.reset();
    d->port = 0;
}

QString TreeServer::errorText() const
{
    return d->errorText;
}

QString TreeServer::url() const
{
    return d->server ? QStringLiteral("http://127.0.0.1:%1/").arg(d->port) : QString();
}
