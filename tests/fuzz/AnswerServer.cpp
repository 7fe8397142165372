// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "AnswerServer.h"

#include <QtGlobal>

#include <cerrno>
#include <cstring>

#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

AnswerServer::AnswerServer()
{
    m_listener = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    sockaddr_in address = {};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    socklen_t length = sizeof address;
    auto* const generic = reinterpret_cast<sockaddr*>(&address);
    if (::bind(m_listener, generic, length) != 0 || ::listen(m_listener, SOMAXCONN) != 0
        || ::getsockname(m_listener, generic, &length) != 0)
        qFatal("no port on loopback: %s", std::strerror(errno));
    m_port = ntohs(address.sin_port);
    m_thread = std::thread([this] { serve(); });
}

AnswerServer::~AnswerServer()
{
    ::shutdown(m_listener, SHUT_RDWR); // ends accept()
    m_thread.join();
    ::close(m_listener);
}

void AnswerServer::setAnswers(const QList<QByteArray>& answers)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_answers = answers;
}

void AnswerServer::serve() const
{
    for (;;) {
        const int connection = ::accept4(m_listener, nullptr, nullptr, SOCK_CLOEXEC);
        if (connection < 0)
            return;
        answer(connection);
        ::close(connection);
    }
}

void AnswerServer::answer(int connection) const
{
    QByteArray request;
    char chunk[4096];
    while (!request.contains("\r\n\r\n")) {
        const ssize_t length = ::recv(connection, chunk, sizeof chunk, 0);
        if (length <= 0)
            return;
        request.append(chunk, static_cast<int>(length));
    }
    const QByteArray bytes = next();
    ::send(connection, bytes.constData(), static_cast<std::size_t>(bytes.size()), MSG_NOSIGNAL);
    ::shutdown(connection, SHUT_WR);
    // Closing before the client has sent everything would reset the connection.
    while (::recv(connection, chunk, sizeof chunk, 0) > 0) { }
}

QByteArray AnswerServer::next() const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    return m_answers.isEmpty() ? QByteArray() : m_answers.takeFirst();
}
