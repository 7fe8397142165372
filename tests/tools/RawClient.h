#pragma once

#include <QByteArray>
#include <QtGlobal>

/// A connection to a port of loopback that asks for addresses as they are given.
class RawClient
{
public:
    explicit RawClient(quint16 port);
    ~RawClient();
    Q_DISABLE_COPY_MOVE(RawClient)

    bool isConnected() const { return m_connected; }

    /// Header and body of the answer; the server closes the connection behind it. `fields` are
    /// whole lines, each with its end.
    QByteArray get(const QByteArray& target, const QByteArray& fields = QByteArray(),
                   const QByteArray& method = "GET");
    /// The beginning of the answer; the connection stays open.
    QByteArray begin(const QByteArray& target);

    /// Sends bytes as they are. False: the connection has ended.
    bool send(const QByteArray& bytes) const;
    /// Waits for bytes and appends them. False: the connection has ended, or nothing came for 20 s.
    bool receive(QByteArray& answer) const;
    /// Everything until the server ends the connection.
    QByteArray receiveAll() const;
    /// Whether the server has ended the connection, and nothing it sent is left to receive.
    bool isEnded() const;

    static int status(const QByteArray& answer);
    /// Value of a header field; empty if it is not there.
    static QByteArray field(const QByteArray& answer, const QByteArray& name);
    static QByteArray body(const QByteArray& answer);

private:
    void ask(const QByteArray& method, const QByteArray& target, const QByteArray& fields) const;

    int m_socket;
    bool m_connected = false;
};
