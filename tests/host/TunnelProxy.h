// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "support/TestSocket.h"

#include <QByteArray>
#include <QString>

#include <atomic>
#include <chrono>
#include <thread>

/// A proxy for one connection to a loopback port: answers its CONNECT, then forwards bytes in both
/// directions, and records the client's first request.
class TunnelProxy
{
public:
    /// Sends `answer` to the client after `delay`; only status 200 opens the tunnel.
    TunnelProxy(quint16 port, QByteArray answer, std::chrono::milliseconds delay = {})
        : m_listener(TestSocket::listen(m_port))
        , m_answer(std::move(answer))
        , m_delay(delay)
    {
        if (m_listener == TestSocket::none)
            qFatal("no loopback socket");
        m_thread = std::thread([this, port] { serve(port); });
    }

    ~TunnelProxy()
    {
        m_stopping = true;
        m_thread.join();
        TestSocket::close(m_listener);
    }
    Q_DISABLE_COPY_MOVE(TunnelProxy)

    QString address() const { return QStringLiteral("http://127.0.0.1:%1").arg(m_port); }

    /// Returns the header of the first request, once its answer has arrived.
    QByteArray request() const { return m_request; }

private:
    bool readable(TestSocket::Handle socket) const
    {
        constexpr int pollMs = 20;
        return !m_stopping && TestSocket::isReadable(socket, pollMs);
    }

    void serve(quint16 port)
    {
        while (!m_stopping) {
            if (!readable(m_listener))
                continue;
            const TestSocket::Handle client = TestSocket::accept(m_listener);
            if (readRequest(client) && sendAnswer(client)) {
                const TestSocket::Handle server = TestSocket::connect(port);
                if (server != TestSocket::none) {
                    passOn(client, server);
                    TestSocket::close(server);
                }
            }
            TestSocket::close(client);
        }
    }

    bool readRequest(TestSocket::Handle client)
    {
        QByteArray head;
        while (!m_stopping && !head.endsWith("\r\n\r\n")) {
            char byte = 0;
            if (readable(client) && TestSocket::receive(client, &byte, 1) <= 0)
                return false;
            if (byte != 0)
                head.append(byte);
        }
        m_request = head;
        return !m_stopping;
    }

    bool sendAnswer(TestSocket::Handle client) const
    {
        std::this_thread::sleep_for(m_delay);
        TestSocket::send(client, m_answer.constData(), static_cast<std::size_t>(m_answer.size()));
        return m_answer.startsWith("HTTP/1.1 200");
    }

    void passOn(TestSocket::Handle client, TestSocket::Handle server) const
    {
        constexpr int pollMs = 5;
        while (!m_stopping) {
            if ((TestSocket::isReadable(client, pollMs) && !passOnce(client, server))
                || (TestSocket::isReadable(server, pollMs) && !passOnce(server, client)))
                return;
        }
    }

    static bool passOnce(TestSocket::Handle from, TestSocket::Handle to)
    {
        char buffer[4096];
        const std::ptrdiff_t count = TestSocket::receive(from, buffer, sizeof buffer);
        return count > 0 && TestSocket::send(to, buffer, static_cast<std::size_t>(count)) == count;
    }

    quint16 m_port = 0; // initialised before m_listener, which sets it
    TestSocket::Handle m_listener;
    QByteArray m_answer;
    std::chrono::milliseconds m_delay;
    QByteArray m_request;
    std::atomic<bool> m_stopping{false};
    std::thread m_thread;
};
