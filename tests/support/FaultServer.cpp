// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "support/FaultServer.h"

#include "support/TestSocket.h"

#include <QList>

#include <algorithm>

namespace {

constexpr int pollMs = 20;
constexpr int receiveChunk = 16 * 1024;

/// Opens a listening socket on a free port of loopback.
TestSocket::Handle listenOnLoopback(quint16& port)
{
    port = 0;
    const TestSocket::Handle listener = TestSocket::listen(port);
    if (listener == TestSocket::none)
        qFatal("no loopback socket");
    return listener;
}

} // namespace

FaultServer::FaultServer(Handler handler)
    : m_handler(std::move(handler))
    , m_listener(listenOnLoopback(m_port))
    , m_acceptor(&FaultServer::acceptConnections, this)
{
}

FaultServer::~FaultServer()
{
    m_stopping = true;
    m_acceptor.join();
    for (std::thread& worker : m_workers)
        worker.join();
    TestSocket::close(m_listener);
}

QString FaultServer::url(const QString& target) const
{
    return QStringLiteral("http://127.0.0.1:%1%2").arg(m_port).arg(target);
}

QVector<HttpRequest> FaultServer::requests() const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    // Not shared: ThreadSanitizer cannot follow when a shared one may be written again.
    QVector<HttpRequest> copy = m_requests;
    copy.detach();
    return copy;
}

int FaultServer::requestCount() const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    return m_requests.size();
}

int FaultServer::requestCount(const QByteArray& target) const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    return static_cast<int>(
        std::count_if(m_requests.cbegin(), m_requests.cend(),
                      [&](const HttpRequest& request) { return request.target == target; }));
}

quint16 FaultServer::refusingPort()
{
    quint16 port = 0;
    // Never closed: another program might listen there.
    if (TestSocket::reserve(port) == TestSocket::none)
        qFatal("no loopback socket");
    return port;
}

void FaultServer::acceptConnections()
{
    while (!m_stopping) {
        if (!TestSocket::isReadable(m_listener, pollMs))
            continue;
        const TestSocket::Handle socket = TestSocket::accept(m_listener);
        if (socket == TestSocket::none)
            continue;
        const int number = ++m_connections;
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_workers.emplace_back(&FaultServer::serve, this, socket, number);
    }
}

void FaultServer::serve(TestSocket::Handle socket, int number)
{
    QByteArray buffer;
    for (bool open = true; open && !m_stopping;) {
        HttpRequest request;
        if (!readRequest(socket, buffer, request))
            break;
        request.connection = number;
        {
            const std::lock_guard<std::mutex> lock(m_mutex);
            m_requests.append(request);
        }
        HttpExchange exchange(socket, request, m_stopping);
        m_handler(exchange);
        open = exchange.isOpen();
    }
    TestSocket::close(socket);
}

bool FaultServer::readRequest(TestSocket::Handle socket, QByteArray& buffer,
                              HttpRequest& request) const
{
    int end = -1;
    while ((end = buffer.indexOf("\r\n\r\n")) < 0) {
        if (m_stopping)
            return false;
        if (!TestSocket::isReadable(socket, pollMs))
            continue;
        char chunk[receiveChunk];
        const std::ptrdiff_t count = TestSocket::receive(socket, chunk, sizeof chunk);
        if (count <= 0)
            return false;
        buffer.append(chunk, static_cast<int>(count));
    }
    QList<QByteArray> lines = buffer.left(end).split('\n');
    buffer.remove(0, end + 4);
    const QList<QByteArray> words = lines.takeFirst().trimmed().split(' ');
    request.method = words.value(0);
    request.target = words.value(1);
    for (const QByteArray& line : qAsConst(lines)) {
        const int colon = line.indexOf(':');
        request.fields.insert(line.left(colon).toLower(), line.mid(colon + 1).trimmed());
    }
    return true;
}
