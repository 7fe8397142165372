// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

#ifndef Q_OS_WIN
#include <cerrno>
#include <vector>

#include <arpa/inet.h>
#include <fcntl.h>
#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>
#endif

/// A loopback port on which a connection is neither established nor refused: nobody accepts, and
/// the backlog is full. There is none on Windows, where a full backlog refuses.
class SilentPort
{
#ifdef Q_OS_WIN
public:
    static constexpr bool isPossible = false;

    QString url(const QString& target) const
    {
        return target;
    }
#else
public:
    static constexpr bool isPossible = true;

    SilentPort()
        : m_listener(::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0))
    {
        m_address.sin_family = AF_INET;
        m_address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        socklen_t length = sizeof m_address;
        if (::bind(m_listener, generic(), length) != 0
            || ::getsockname(m_listener, generic(), &length) != 0 || ::listen(m_listener, 0) != 0)
            qFatal("no loopback socket");
        while (connectOneMore()) { }
    }

    ~SilentPort()
    {
        for (const int socket : m_waiting)
            ::close(socket);
        ::close(m_listener);
    }
    Q_DISABLE_COPY_MOVE(SilentPort)

    QString url(const QString& target) const
    {
        return QStringLiteral("http://127.0.0.1:%1%2").arg(ntohs(m_address.sin_port)).arg(target);
    }

private:
    sockaddr* generic()
    {
        return reinterpret_cast<sockaddr*>(&m_address);
    }

    /// Returns false once the backlog is full: loopback establishes a connection at once, or never.
    bool connectOneMore()
    {
        const int socket = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0);
        m_waiting.push_back(socket);
        if (::connect(socket, generic(), sizeof m_address) == 0)
            return true;
        pollfd descriptor = {socket, POLLOUT, 0};
        return errno == EINPROGRESS && ::poll(&descriptor, 1, 200) > 0;
    }

    int m_listener;
    sockaddr_in m_address = {};
    std::vector<int> m_waiting;
#endif
};
