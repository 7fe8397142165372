// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "server/Sockets.h"

#include <algorithm>
#include <limits>

#include <winsock2.h>

namespace {

/// One call transfers no more than this.
int pieceOf(std::size_t size)
{
    return static_cast<int>(std::min<std::size_t>(size, std::numeric_limits<int>::max()));
}

std::ptrdiff_t resultOf(int count)
{
    if (count != SOCKET_ERROR)
        return count;
    return ::WSAGetLastError() == WSAEWOULDBLOCK ? Sockets::notNow : Sockets::failed;
}

void setOption(Sockets::Handle socket, int option, int value)
{
    ::setsockopt(socket, SOL_SOCKET, option, reinterpret_cast<const char*>(&value), sizeof value);
}

/// Returns whether nothing can be received any more.
bool hasEnded(Sockets::Handle socket)
{
    char next = 0;
    const std::ptrdiff_t count = resultOf(::recv(socket, &next, 1, MSG_PEEK));
    return count == 0 || count == Sockets::failed;
}

} // namespace

bool Sockets::prepare(Handle socket)
{
    u_long on = 1;
    return ::ioctlsocket(socket, FIONBIO, &on) == 0;
}

void Sockets::prepareListener(Handle socket, int sendBufferBytes)
{
    // SO_REUSEADDR would let a second server bind the same port here.
    setOption(socket, SO_EXCLUSIVEADDRUSE, 1);
    setOption(socket, SO_SNDBUF, sendBufferBytes);
}

void Sockets::extendBacklog(Handle listener)
{
    ::listen(listener, SOMAXCONN);
}

std::ptrdiff_t Sockets::receive(Handle socket, char* data, std::size_t size)
{
    return resultOf(::recv(socket, data, pieceOf(size), 0));
}

std::ptrdiff_t Sockets::send(Handle socket, const char* data, std::size_t size)
{
    return resultOf(::send(socket, data, pieceOf(size), 0));
}

/// Waits in slices: a shutdown by another thread does not end a call here.
bool Sockets::wait(Handle socket, Event event, int timeoutMs)
{
    constexpr int sliceMs = 50;
    WSAPOLLFD state = {socket, static_cast<short>(event == Event::Input ? POLLIN : POLLOUT), 0};
    for (int left = timeoutMs;; left -= sliceMs) {
        if (::WSAPoll(&state, 1, std::min(left, sliceMs)) > 0 || hasEnded(socket))
            return true;
        if (left <= sliceMs)
            return false;
    }
}

void Sockets::shutdown(Handle socket)
{
    ::shutdown(socket, SD_BOTH);
}

void Sockets::close(Handle socket)
{
    ::closesocket(socket);
}
