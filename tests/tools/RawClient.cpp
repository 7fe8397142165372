// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "RawClient.h"

#include <QList>

#include <algorithm>
#include <array>
#include <cerrno>

#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <sys/time.h>
#include <unistd.h>

RawClient::RawClient(quint16 port)
    : m_socket(::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0))
{
    sockaddr_in address = {};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    address.sin_port = htons(port);
    const timeval longest = {20, 0};
    ::setsockopt(m_socket, SOL_SOCKET, SO_RCVTIMEO, &longest, sizeof longest);
    ::setsockopt(m_socket, SOL_SOCKET, SO_SNDTIMEO, &longest, sizeof longest);
    m_connected = ::connect(m_socket, reinterpret_cast<sockaddr*>(&address), sizeof address) == 0;
}

RawClient::~RawClient()
{
    ::close(m_socket);
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
    return ::send(m_socket, bytes.constData(), size, MSG_NOSIGNAL) == bytes.size();
}

bool RawClient::receive(QByteArray& answer) const
{
    std::array<char, 65536> part = {};
    const ssize_t count = ::recv(m_socket, part.data(), part.size(), 0);
    answer.append(part.data(), static_cast<int>(std::max<ssize_t>(count, 0)));
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
    char byte = 0;
    const ssize_t count = ::recv(m_socket, &byte, 1, MSG_PEEK | MSG_DONTWAIT);
    return count == 0 || (count < 0 && errno != EAGAIN && errno != EWOULDBLOCK && errno != EINTR);
}
