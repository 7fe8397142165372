// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "support/TestSocket.h"

#include <QByteArray>
#include <QtGlobal>

/// A connection to a loopback port that sends request targets verbatim.
class RawClient
{
public:
    explicit RawClient(quint16 port);
    ~RawClient();
    Q_DISABLE_COPY_MOVE(RawClient)

    bool isConnected() const { return m_socket != TestSocket::none; }

    /// Returns header and body of the answer, after which the server closes the connection.
    /// `fields` are whole lines, each with its end.
    QByteArray get(const QByteArray& target, const QByteArray& fields = QByteArray(),
                   const QByteArray& method = "GET");
    /// Returns the beginning of the answer; the connection stays open.
    QByteArray begin(const QByteArray& target);

    /// Sends raw bytes. Returns false if the connection has ended.
    bool send(const QByteArray& bytes) const;
    /// Waits for bytes and appends them. Returns false if the connection has ended or stays silent
    /// for 20 s.
    bool receive(QByteArray& answer) const;
    /// Returns everything received until the server ends the connection.
    QByteArray receiveAll() const;
    /// Returns whether the server has ended the connection and all it sent has been received.
    bool isEnded() const;

    static int status(const QByteArray& answer);
    /// Returns the value of a header field; empty if there is none.
    static QByteArray field(const QByteArray& answer, const QByteArray& name);
    static QByteArray body(const QByteArray& answer);

private:
    void ask(const QByteArray& method, const QByteArray& target, const QByteArray& fields) const;

    TestSocket::Handle m_socket;
};
