// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>
#include <QString>

#include <atomic>
#include <chrono>
#include <thread>

#include <arpa/inet.h>
#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

/// A proxy for one connection to a loopback port: answers its CONNECT, then forwards bytes in both
/// directions, and records the client's first request.
class TunnelProxy
{
public:
    /// Sends `answer` to the client after `delay`; only status 200 opens the tunnel.
    TunnelProxy(int port, QByteArray answer, std::chrono::milliseconds delay = {})
        : m_listener(::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0))
        , m_answer(std::move(answer))
        , m_delay(delay)
    {
        sockaddr_in address = loopback(0);
        socklen_t length = sizeof address;
        if (::bind(m_listener, generic(address), length) != 0
            || ::getsockname(m_listener, generic(address), &length) != 0
            || ::listen(m_listener, 8) != 0)
            qFatal("no loopback socket");
        m_port = ntohs(address.sin_port);
        m_thread = std::thread([this, port] { serve(port); });
    }

    ~TunnelProxy()
    {
        m_stopping = true;
        m_thread.join();
        ::close(m_listener);
    }
    Q_DISABLE_COPY_MOVE(TunnelProxy)

    QString address() const { return QStringLiteral("http://127.0.0.1:%1").arg(m_port); }

    /// Returns the header of the first request, once its answer has arrived.
    QByteArray request() const { return m_request; }

private:
    static sockaddr_in loopback(int port)
    {
        sockaddr_in address = {};
        address.sin_family = AF_INET;
        address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        address.sin_port = htons(static_cast<quint16>(port));
        return address;
    }

    static sockaddr* generic(sockaddr_in& address) { return reinterpret_cast<sockaddr*>(&address); }

    bool readable(int socket) const
    {
        pollfd descriptor = {socket, POLLIN, 0};
        return !m_stopping && ::poll(&descriptor, 1, 20) > 0;
    }

    void serve(int port)
    {
        while (!m_stopping) {
            if (!readable(m_listener))
                continue;
            const int client = ::accept4(m_listener, nullptr, nullptr, SOCK_CLOEXEC);
            const int server = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
            if (readRequest(client) && sendAnswer(client)) {
                sockaddr_in address = loopback(port);
                if (::connect(server, generic(address), sizeof address) == 0)
                    passOn(client, server);
            }
            ::close(server);
            ::close(client);
        }
    }

    bool readRequest(int client)
    {
        QByteArray head;
        while (!m_stopping && !head.endsWith("\r\n\r\n")) {
            char byte = 0;
            if (readable(client) && ::recv(client, &byte, 1, 0) <= 0)
                return false;
            if (byte != 0)
                head.append(byte);
        }
        m_request = head;
        return !m_stopping;
    }

    bool sendAnswer(int client) const
    {
        std::this_thread::sleep_for(m_delay);
        ::send(client, m_answer.constData(), static_cast<std::size_t>(m_answer.size()),
               MSG_NOSIGNAL);
        return m_answer.startsWith("HTTP/1.1 200");
    }

    void passOn(int client, int server) const
    {
        while (!m_stopping) {
            pollfd both[] = {{client, POLLIN, 0}, {server, POLLIN, 0}};
            ::poll(both, 2, 20);
            if ((both[0].revents && !passOnce(client, server))
                || (both[1].revents && !passOnce(server, client)))
                return;
        }
    }

    static bool passOnce(int from, int to)
    {
        char buffer[4096];
        const ssize_t count = ::recv(from, buffer, sizeof buffer, 0);
        return count > 0
            && ::send(to, buffer, static_cast<std::size_t>(count), MSG_NOSIGNAL) == count;
    }

    int m_listener;
    QByteArray m_answer;
    std::chrono::milliseconds m_delay;
    quint16 m_port = 0;
    QByteArray m_request;
    std::atomic<bool> m_stopping{false};
    std::thread m_thread;
};
