// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

#include <atomic>

#include <sys/types.h>

/// A proxy on loopback that passes requests on to an HTTP server and holds back every answer, as a
/// distant server does. Runs in a process of its own, which ends with this object.
class DelayProxy
{
public:
    explicit DelayProxy(quint16 serverPort);
    ~DelayProxy();
    Q_DISABLE_COPY_MOVE(DelayProxy)

    /// Returns "http://127.0.0.1:PORT/".
    QString url() const;
    /// Sets the time before each answer, from the next request on; 0 by default.
    void setDelay(int milliseconds) { *m_delayMs = milliseconds; }

private:
    [[noreturn]] void serveForever() const;
    void serve(int client) const;
    int connectToServer() const;

    quint16 m_serverPort;
    quint16 m_port = 0;
    int m_listener;              // sets m_port
    std::atomic<int>* m_delayMs; // in memory shared with the process
    pid_t m_child = -1;
};
