// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "support/TestSocket.h"

#include <QByteArray>
#include <QMap>

#include <atomic>
#include <chrono>

class HttpAnswer;

/// A request as received.
struct HttpRequest
{
    QByteArray method;
    QByteArray target;                   ///< as on the request line, undecoded
    QMap<QByteArray, QByteArray> fields; ///< by lower-case name
    int connection = 0;                  ///< number of its connection, from 1
};

/// A request and the means to answer it, properly or not. Used on the connection's thread only.
class HttpExchange
{
public:
    HttpExchange(TestSocket::Handle socket, HttpRequest request, const std::atomic<bool>& stopping);

    const HttpRequest& request() const { return m_request; }

    /// Sends an answer; the connection stays open for the next request.
    void answer(const HttpAnswer& answer);
    /// Sends raw bytes.
    void send(const QByteArray& bytes);
    /// Closes the connection properly, as after a complete answer.
    void close();
    /// Resets the connection.
    void reset();
    /// Sends nothing until the client disconnects or the server stops.
    void stall();
    /// Waits for `time`, or until the server stops.
    void pause(std::chrono::milliseconds time) const;

    bool isOpen() const { return m_open; }

private:
    bool clientIsGone() const;

    TestSocket::Handle m_socket;
    HttpRequest m_request;
    const std::atomic<bool>& m_stopping;
    bool m_open = true;
};
