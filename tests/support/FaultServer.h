// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "support/HttpExchange.h"

#include <QMetaType>
#include <QString>
#include <QVector>

#include <atomic>
#include <functional>
#include <list>
#include <mutex>
#include <thread>

/// A real HTTP server on loopback whose answers a test scripts down to the byte: it can refuse,
/// reset, truncate, stall, redirect and answer with any status.
///
/// The handler runs on the thread of the request's connection; several may run at once. The
/// destructor ends stalls and joins all threads.
class FaultServer
{
public:
    using Handler = std::function<void(HttpExchange&)>;

    explicit FaultServer(Handler handler);
    ~FaultServer();
    Q_DISABLE_COPY_MOVE(FaultServer)

    quint16 port() const { return m_port; }
    /// Returns "http://127.0.0.1:PORT" plus the target, which starts with "/".
    QString url(const QString& target) const;

    /// Returns the requests so far, in order of arrival.
    QVector<HttpRequest> requests() const;
    int requestCount() const;
    /// Returns how many times the target was requested.
    int requestCount(const QByteArray& target) const;
    int connectionCount() const { return m_connections; }

    /// Returns a loopback port that refuses connections as long as this process runs.
    static quint16 refusingPort();

private:
    void acceptConnections();
    void serve(TestSocket::Handle socket, int number);
    bool readRequest(TestSocket::Handle socket, QByteArray& buffer, HttpRequest& request) const;

    Handler m_handler;
    quint16 m_port = 0; // initialised before m_listener, which sets it
    TestSocket::Handle m_listener = TestSocket::none;
    std::atomic<bool> m_stopping{false};
    std::atomic<int> m_connections{0};
    mutable std::mutex m_mutex; // guards m_requests and m_workers
    QVector<HttpRequest> m_requests;
    std::list<std::thread> m_workers;
    std::thread m_acceptor;
};

Q_DECLARE_METATYPE(FaultServer::Handler)
