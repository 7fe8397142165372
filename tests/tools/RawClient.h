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

    static int status(const QByteArray& answer);
    /// Value of a header field; empty if it is not there.
    static QByteArray field(const QByteArray& answer, const QByteArray& name);
    static QByteArray body(const QByteArray& answer);

private:
    void ask(const QByteArray& method, const QByteArray& target, const QByteArray& fields) const;
    bool receive(QByteArray& answer) const;

    int m_socket;
    bool m_connected = false;
};
