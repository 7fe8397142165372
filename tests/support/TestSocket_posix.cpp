// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "support/TestSocket.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

namespace {

constexpr int backlog = 64;

sockaddr_in loopback(quint16 port)
{
    sockaddr_in address = {};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    address.sin_port = htons(port);
    return address;
}

TestSocket::Handle make()
{
    return ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
}

} // namespace

TestSocket::Handle TestSocket::reserve(quint16& port)
{
    const Handle socket = make();
    sockaddr_in address = loopback(port);
    socklen_t length = sizeof address;
    auto* const generic = reinterpret_cast<sockaddr*>(&address);
    if (::bind(socket, generic, length) != 0 || ::getsockname(socket, generic, &length) != 0) {
        close(socket);
        return none;
    }
    port = ntohs(address.sin_port);
    return socket;
}

TestSocket::Handle TestSocket::listen(quint16& port)
{
    const Handle listener = reserve(port);
    if (listener == none || ::listen(listener, backlog) == 0)
        return listener;
    close(listener);
    return none;
}

TestSocket::Handle TestSocket::connect(quint16 port)
{
    const Handle socket = make();
    sockaddr_in address = loopback(port);
    if (::connect(socket, reinterpret_cast<sockaddr*>(&address), sizeof address) == 0)
        return socket;
    close(socket);
    return none;
}

TestSocket::Handle TestSocket::accept(Handle listener)
{
    const Handle socket = ::accept4(listener, nullptr, nullptr, SOCK_CLOEXEC);
    const int on = 1;
    if (socket != none)
        ::setsockopt(socket, IPPROTO_TCP, TCP_NODELAY, &on, sizeof on);
    return socket;
}

bool TestSocket::isReadable(Handle socket, int timeoutMs)
{
    pollfd descriptor = {socket, POLLIN, 0};
    return ::poll(&descriptor, 1, timeoutMs) > 0;
}

bool TestSocket::hasEnded(Handle socket)
{
    char byte = 0;
    return isReadable(socket, 0) && ::recv(socket, &byte, 1, MSG_PEEK) <= 0;
}

std::ptrdiff_t TestSocket::receive(Handle socket, char* data, std::size_t size)
{
    return ::recv(socket, data, size, 0);
}

std::ptrdiff_t TestSocket::send(Handle socket, const char* data, std::size_t size)
{
    return ::send(socket, data, size, MSG_NOSIGNAL);
}

void TestSocket::endSending(Handle socket)
{
    ::shutdown(socket, SHUT_WR);
}

void TestSocket::resetOnClose(Handle socket)
{
    const linger abort = {1, 0};
    ::setsockopt(socket, SOL_SOCKET, SO_LINGER, &abort, sizeof abort);
}

void TestSocket::close(Handle socket)
{
    ::close(socket);
}
