#include "BodyServer.h"

#include <QByteArray>
#include <QList>

#include <algorithm>

#include <arpa/inet.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <sys/socket.h>
#include <unistd.h>

namespace {

constexpr int backlog = 16;
constexpr int chunkSize = 256 * 1024;

bool sendAll(int socket, const char* data, qint64 length)
{
    while (length > 0) {
        const ssize_t sent = ::send(socket, data, static_cast<std::size_t>(length), MSG_NOSIGNAL);
        if (sent <= 0)
            return false;
        data += sent;
        length -= sent;
    }
    return true;
}

bool sendBody(int socket, qint64 length)
{
    static const QByteArray chunk(chunkSize, 'x');
    for (; length > 0; length -= chunk.size()) {
        if (!sendAll(socket, chunk.constData(), std::min<qint64>(length, chunk.size())))
            return false;
    }
    return true;
}

} // namespace

BodyServer::BodyServer()
    : m_listener(::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0))
{
    sockaddr_in address = {};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t length = sizeof address;
    auto* const generic = reinterpret_cast<sockaddr*>(&address);
    if (::bind(m_listener, generic, length) != 0 || ::getsockname(m_listener, generic, &length) != 0
        || ::listen(m_listener, backlog) != 0)
        qFatal("no loopback socket");
    m_port = ntohs(address.sin_port);
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
        const int on = 1;
        ::setsockopt(socket, IPPROTO_TCP, TCP_NODELAY, &on, sizeof on);
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
        if (!sendAll(socket, head.constData(), head.size()) || !sendBody(socket, size))
            return;
    }
}
