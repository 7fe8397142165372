// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "server/Sockets.h"

#include <cerrno>

#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

namespace {

std::ptrdiff_t resultOf(ssize_t count)
{
    if (count >= 0)
        return count;
    const bool isTemporary = errno == EAGAIN || errno == EWOULDBLOCK || errno == EINTR;
    return isTemporary ? Sockets::notNow : Sockets::failed;
}

} // namespace

bool Sockets::prepare(Handle /*socket*/)
{
    return true; // every call says itself that it does not wait
}

void Sockets::prepareListener(Handle socket, int sendBufferBytes)
{
    const int on = 1;
    ::setsockopt(socket, SOL_SOCKET, SO_REUSEADDR, &on, sizeof on);
    ::setsockopt(socket, SOL_SOCKET, SO_SNDBUF, &sendBufferBytes, sizeof sendBufferBytes);
}

void Sockets::extendBacklog(Handle listener)
{
    ::listen(listener, SOMAXCONN);
}

std::ptrdiff_t Sockets::receive(Handle socket, char* data, std::size_t size)
{
    return resultOf(::recv(socket, data, size, MSG_DONTWAIT));
}

std::ptrdiff_t Sockets::send(Handle socket, const char* data, std::size_t size)
{
    return resultOf(::send(socket, data, size, MSG_DONTWAIT | MSG_NOSIGNAL));
}

bool Sockets::wait(Handle socket, Event event, int timeoutMs)
{
    pollfd state = {socket, static_cast<short>(event == Event::Input ? POLLIN : POLLOUT), 0};
    return ::poll(&state, 1, timeoutMs) > 0;
}

void Sockets::shutdown(Handle socket)
{
    ::shutdown(socket, SHUT_RDWR);
}

void Sockets::close(Handle socket)
{
    ::close(socket);
}
