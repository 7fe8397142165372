// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "BodyServer.h"

#include "Loopback.h"

#include <QByteArray>
#include <QList>

#include <algorithm>

#include <sys/socket.h>
#include <unistd.h>

namespace {

constexpr int chunkSize = 256 * 1024;

bool sendBody(int socket, qint64 length)
{
    static const QByteArray chunk(chunkSize, 'x');
    for (; length > 0; length -= chunk.size()) {
        if (!Loopback::sendAll(socket, chunk.constData(), std::min<qint64>(length, chunk.size())))
            return false;
    }
    return true;
}

} // namespace

BodyServer::BodyServer()
    : m_listener(Loopback::listen(m_port))
{
}

BodyServer::~BodyServer()
{
    ::close(m_listener);
}

void BodyServer::serveForever() const
{
    for (;;) {
        const int socket = ::accept(m_listener, nullptr, nullptr);
        if (socket < 0)
            continue;
        Loopback::sendAtOnce(socket);
        serve(socket);
        ::close(socket);
    }
}

void BodyServer::serve(int socket) const
{
    QByteArray buffer;
    char received[4096];
    for (;;) {
        const int end = buffer.indexOf("\r\n\r\n");
        if (end < 0) {
            const ssize_t count = ::recv(socket, received, sizeof received, 0);
            if (count <= 0)
                return;
            buffer.append(received, static_cast<int>(count));
            continue;
        }
        const QByteArray path = buffer.left(buffer.indexOf('\r')).split(' ').value(1);
        buffer.remove(0, end + 4);
        const qint64 size = path.split('/').value(1).toLongLong();
        const QByteArray head =
            "HTTP/1.1 200 OK\r\nContent-Length: " + QByteArray::number(size) + "\r\n\r\n";
        if (!Loopback::sendAll(socket, head.constData(), head.size()) || !sendBody(socket, size))
            return;
    }
}
