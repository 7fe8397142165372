// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "RawClient.h"

#include <QList>

#include <algorithm>
#include <array>

RawClient::RawClient(quint16 port)
    : m_socket(TestSocket::connect(port))
{
}

RawClient::~RawClient()
{
    if (isConnected())
        TestSocket::close(m_socket);
}

QByteArray RawClient::get(const QByteArray& target, const QByteArray& fields,
                          const QByteArray& method)
{
    ask(method, target, "Connection: close\r\n" + fields);
    return receiveAll();
}

QByteArray RawClient::begin(const QByteArray& target)
{
    ask("GET", target, "Connection: keep-alive\r\n");
    QByteArray answer;
    receive(answer);
    return answer;
}

int RawClient::status(const QByteArray& answer)
{
    return answer.split(' ').value(1).toInt();
}

QByteArray RawClient::field(const QByteArray& answer, const QByteArray& name)
{
    const QByteArray head = "\r\n" + answer.left(answer.indexOf("\r\n\r\n")) + "\r\n";
    const int at = head.toLower().indexOf("\r\n" + name.toLower() + ':');
    if (at < 0)
        return QByteArray();
    const int begin = at + name.size() + 3;
    return head.mid(begin, head.indexOf("\r\n", begin) - begin).trimmed();
}

QByteArray RawClient::body(const QByteArray& answer)
{
    return answer.mid(answer.indexOf("\r\n\r\n") + 4);
}

void RawClient::ask(const QByteArray& method, const QByteArray& target,
                    const QByteArray& fields) const
{
    send(method + ' ' + target + " HTTP/1.1\r\nHost: 127.0.0.1\r\n" + fields + "\r\n");
}

bool RawClient::send(const QByteArray& bytes) const
{
    const auto size = static_cast<size_t>(bytes.size());
    return TestSocket::send(m_socket, bytes.constData(), size) == bytes.size();
}

bool RawClient::receive(QByteArray& answer) const
{
    constexpr int longestMs = 20000;
    std::array<char, 65536> part = {};
    const std::ptrdiff_t count = TestSocket::isReadable(m_socket, longestMs)
        ? TestSocket::receive(m_socket, part.data(), part.size())
        : 0;
    answer.append(part.data(), static_cast<int>(std::max<std::ptrdiff_t>(count, 0)));
    return count > 0;
}

QByteArray RawClient::receiveAll() const
{
    QByteArray answer;
    while (receive(answer)) { }
    return answer;
}

bool RawClient::isEnded() const
{
    return TestSocket::hasEnded(m_socket);
}
