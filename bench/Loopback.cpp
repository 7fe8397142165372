// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "Loopback.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <sys/socket.h>

namespace {

constexpr int backlog = 64;

} // namespace

int Loopback::listen(quint16& port)
{
    const int listener = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    sockaddr_in address = {};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t length = sizeof address;
    auto* const generic = reinterpret_cast<sockaddr*>(&address);
    if (::bind(listener, generic, length) != 0 || ::getsockname(listener, generic, &length) != 0
        || ::listen(listener, backlog) != 0)
        qFatal("no loopback socket");
    port = ntohs(address.sin_port);
    return listener;
}

void Loopback::sendAtOnce(int socket)
{
    const int on = 1;
    ::setsockopt(socket, IPPROTO_TCP, TCP_NODELAY, &on, sizeof on);
}

bool Loopback::sendAll(int socket, const char* data, qint64 length)
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
