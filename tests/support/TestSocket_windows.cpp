// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "support/TestSocket.h"

#include <winsock2.h>

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

/// Returns a socket that child processes do not inherit, as elsewhere: they would keep its port.
TestSocket::Handle make()
{
    // The system wants to be asked for sockets first; the end of the process is the end of that.
    static const int started = [] {
        WSADATA data = {};
        return ::WSAStartup(MAKEWORD(2, 2), &data);
    }();
    return started == 0 ? ::WSASocketW(AF_INET, SOCK_STREAM, 0, nullptr, 0,
                                       WSA_FLAG_OVERLAPPED | WSA_FLAG_NO_HANDLE_INHERIT)
                        : TestSocket::none;
}

template <class Value>
void setOption(TestSocket::Handle socket, int level, int option, Value value)
{
    ::setsockopt(socket, level, option, reinterpret_cast<const char*>(&value), sizeof value);
}

} // namespace

TestSocket::Handle TestSocket::reserve(quint16& port)
{
    const Handle socket = make();
    sockaddr_in address = loopback(port);
    int length = sizeof address;
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
    const Handle socket = ::accept(listener, nullptr, nullptr);
    if (socket == none)
        return none;
    ::SetHandleInformation(reinterpret_cast<HANDLE>(socket), HANDLE_FLAG_INHERIT, 0);
    setOption(socket, IPPROTO_TCP, TCP_NODELAY, 1);
    return socket;
}

bool TestSocket::isReadable(Handle socket, int timeoutMs)
{
    WSAPOLLFD descriptor = {socket, POLLIN, 0};
    return ::WSAPoll(&descriptor, 1, timeoutMs) > 0;
}

bool TestSocket::hasEnded(Handle socket)
{
    char next = 0;
    return isReadable(socket, 0) && ::recv(socket, &next, 1, MSG_PEEK) <= 0;
}

std::ptrdiff_t TestSocket::receive(Handle socket, char* data, std::size_t size)
{
    return ::recv(socket, data, static_cast<int>(size), 0);
}

std::ptrdiff_t TestSocket::send(Handle socket, const char* data, std::size_t size)
{
    return ::send(socket, data, static_cast<int>(size), 0);
}

void TestSocket::endSending(Handle socket)
{
    ::shutdown(socket, SD_SEND);
}

void TestSocket::resetOnClose(Handle socket)
{
    setOption(socket, SOL_SOCKET, SO_LINGER, linger{1, 0});
}

void TestSocket::close(Handle socket)
{
    ::closesocket(socket);
}
