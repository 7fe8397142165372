// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "server/TreeServer.h"

#include "server/HttpServer.h"
#include "server/OpenFiles.h"
#include "server/TreeFile.h"

#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <condition_variable>
#include <mutex>
#include <thread>

#include <httplib.h>

namespace {

QByteArray header(const httplib::Request& request, const char* name)
{
    return QByteArray::fromStdString(request.get_header_value(name));
}

/// Reduces the request to at most one range within the file. Returns false if there is none.
bool fitRange(httplib::Ranges& ranges, qint64 size)
{
    if (ranges.size() > 1)
        ranges.clear(); // sending the whole file is also correct
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
    // The request is httplib's own object, passed as const; httplib cuts the body by these ranges,
    // even beyond the end of the file.
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
            constexpr size_t piece = 1 << 16;
            if (!opened->seek(static_cast<qint64>(offset)))
                return false;
            const QByteArray part = opened->read(static_cast<qint64>(std::min(length, piece)));
            return !part.isEmpty()
                && sink.write(part.constData(), static_cast<size_t>(part.size()));
        });
}

void refuseMethod(httplib::Response& response)
{
    response.status = 405;
    response.set_header("Allow", "GET, HEAD");
}

/// Replaces control characters: addresses are untrusted, and a log line must stay one line.
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
    std::unique_ptr<HttpServer> makeServer(const QString& folder);
    void setHeld(bool held);
    void waitWhileHeld();

    std::unique_ptr<HttpServer> server; // null while stopped
    std::thread thread;
    AccessLog log;
    ServerLimits limits;
    QString errorText;
    int port = 0;
    std::mutex mutex; // guards isHeld
    std::condition_variable released;
    bool isHeld = false;
};

void TreeServer::Private::setHeld(bool held)
{
    {
        const std::lock_guard<std::mutex> lock(mutex);
        isHeld = held;
    }
    released.notify_all();
}

void TreeServer::Private::waitWhileHeld()
{
    std::unique_lock<std::mutex> lock(mutex);
    released.wait(lock, [this] { return !isHeld; });
}

std::unique_ptr<HttpServer> TreeServer::Private::makeServer(const QString& folder)
{
    ServerLimits possible = limits;
    possible.connections =
        std::clamp(OpenFiles::limit() / OpenFiles::perConnection, 1, limits.connections);
    auto made = std::make_unique<HttpServer>(possible);
    // Before httplib's routing, which would read and decompress whole bodies into memory and match
    // paths with a recursive regular expression.
    made->set_pre_routing_handler(
        [this, root = QFileInfo(folder).absoluteFilePath()](const httplib::Request& request,
                                                            httplib::Response& response) {
            waitWhileHeld();
            if (request.method == "GET" || request.method == "HEAD")
                answer(root, request, response);
            else
                refuseMethod(response);
            return httplib::Server::HandlerResponse::Handled;
        });
    if (!log)
        return made;
    made->set_logger(
        [log = log](const httplib::Request& request, const httplib::Response& response) {
            log(oneLine(QStringLiteral("%1 %2 %3")
                            .arg(QString::fromStdString(request.method),
                                 QString::fromStdString(request.path),
                                 QString::number(response.status))));
        });
    return made;
}

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

void TreeServer::setLimits(const ServerLimits& limits)
{
    d->limits = limits;
}

bool TreeServer::start(const QString& folder, quint16 port)
{
    stop();
    if (!QFileInfo(folder).isDir()) {
        d->errorText = QStringLiteral("%1 is not a folder").arg(folder);
        return false;
    }
    auto server = d->makeServer(folder);
    if (!server->is_valid()) {
        d->errorText = QStringLiteral("the process may not open more files");
        return false;
    }
    d->port = server->bind(port);
    if (d->port == 0) {
        d->errorText = QStringLiteral("port %1 of 127.0.0.1 is not free").arg(port);
        return false;
    }
    d->server = std::move(server);
    d->thread = std::thread([listening = d->server.get()] { listening->listen_after_bind(); });
    // stop() has no effect before the server listens.
    while (!d->server->is_running())
        std::this_thread::yield();
    return true;
}

void TreeServer::setHeld(bool isHeld)
{
    d->setHeld(isHeld);
}

void TreeServer::stop()
{
    if (!d->server)
        return;
    d->setHeld(false); // its threads are joined
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
