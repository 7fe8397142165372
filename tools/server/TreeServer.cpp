#include "server/TreeServer.h"

#include "server/TreeFile.h"

#include <QFile>
#include <QFileInfo>

#include <algorithm>
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

QByteArray header(const httplib::Request& request, const char* name)
{
    return QByteArray::fromStdString(request.get_header_value(name));
}

/// Fits the asked part to the file: at most one part, within the file. False: there is none.
bool fitRange(httplib::Ranges& ranges, qint64 size)
{
    if (ranges.size() > 1)
        ranges.clear(); // the whole file is a right answer too
    if (ranges.empty())
        return true;
    auto& [first, last] = ranges.front();
    if (first < 0) { // the last bytes
        first = std::max<ssize_t>(0, size - last);
        last = size - 1;
    }
    if (last < 0 || last >= size)
        last = size - 1;
    return first <= last;
}

void sendFile(const TreeFile& file, const httplib::Request& request, httplib::Response& response)
{
    // The request is httplib's own object, handed out as constant; it cuts the body by what it
    // finds there, also beyond the end of the file.
    httplib::Ranges& ranges = const_cast<httplib::Request&>(request).ranges;
    if (request.method != "GET" || !file.isSameAs(header(request, "If-Range")))
        ranges.clear();
    if (!fitRange(ranges, file.size())) {
        ranges.clear();
        response.status = 416;
        response.set_header("Content-Range", "bytes */" + std::to_string(file.size()));
        return;
    }
    const std::string type = file.contentType().toStdString();
    if (file.size() == 0) {
        response.set_content("", type);
        return;
    }
    response.set_content_provider(
        static_cast<size_t>(file.size()), type,
        [opened = file.file()](size_t offset, size_t length, httplib::DataSink& sink) {
            constexpr size_t piece = 1 << 18;
            if (!opened->seek(static_cast<qint64>(offset)))
                return false;
            const QByteArray part = opened->read(static_cast<qint64>(std::min(length, piece)));
            return !part.isEmpty()
                && sink.write(part.constData(), static_cast<size_t>(part.size()));
        });
}

/// Addresses come from anyone: a line of the log stays one line, and says what it seems to say.
QString oneLine(QString text)
{
    for (QChar& character : text) {
        const QChar::Category category = character.category();
        if (!character.isPrint() || category == QChar::Separator_Line
            || category == QChar::Separator_Paragraph)
            character = QLatin1Char('?');
    }
    return text;
}

void answer(const QString& folder, const httplib::Request& request, httplib::Response& response)
{
    const TreeFile file(folder, QByteArray::fromStdString(request.path));
    if (!file.exists()) {
        response.status = 404;
        return;
    }
    response.set_header("Accept-Ranges", "bytes");
    response.set_header("ETag", file.entityTag().toStdString());
    response.set_header("Last-Modified", file.lastModified().toStdString());
    response.set_header("Cache-Control", file.cacheControl().toStdString());
    if (file.isKnown(header(request, "If-None-Match"), header(request, "If-Modified-Since")))
        response.status = 304;
    else
        sendFile(file, request, response);
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
    if (!QFileInfo(folder).isDir()) {
        d->errorText = QStringLiteral("%1 is not a folder").arg(folder);
        return false;
    }
    server->set_socket_options(&keepPortToOneself);
    server->set_keep_alive_max_count(1000000);
    server->set_keep_alive_timeout(1); // seconds; stop() waits that long for idle connections
    server->Get(".*",
                [root = QFileInfo(folder).absoluteFilePath()](const httplib::Request& request,
                                                              httplib::Response& response) {
                    answer(root, request, response);
                });
    if (d->log) {
        server->set_logger(
            [log = d->log](const httplib::Request& request, const httplib::Response& response) {
                log(oneLine(QStringLiteral("%1 %2 %3")
                                .arg(QString::fromStdString(request.method),
                                     QString::fromStdString(request.path),
                                     QString::number(response.status))));
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
