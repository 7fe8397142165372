// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "DelayProxy.h"

#include "Loopback.h"

#include <QByteArray>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <new>
#include <thread>

#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/mman.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

constexpr int chunkSize = 64 * 1024;

sockaddr_in loopback(quint16 port)
{
    sockaddr_in address = {};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    address.sin_port = htons(port);
    return address;
}

/// Appends what arrives next; returns false at the end of the connection.
bool receive(int socket, QByteArray& buffer)
{
    char bytes[chunkSize];
    const ssize_t count = ::recv(socket, bytes, sizeof bytes, 0);
    if (count <= 0)
        return false;
    buffer.append(bytes, static_cast<int>(count));
    return true;
}

/// Receives up to the end of a header and returns its length, 0 at the end of the connection.
int receiveHead(int socket, QByteArray& buffer)
{
    for (;;) {
        const int end = buffer.indexOf("\r\n\r\n");
        if (end >= 0)
            return end + 4;
        if (!receive(socket, buffer))
            return 0;
    }
}

qint64 lengthOf(const QByteArray& head)
{
    const QByteArray field = "\r\ncontent-length:";
    const int at = head.toLower().indexOf(field);
    return at < 0 ? 0
                  : head.mid(at + field.size(), head.indexOf('\r', at + 2) - at - field.size())
                        .trimmed()
                        .toLongLong();
}

/// Passes one answer on.
bool relay(int server, int client)
{
    QByteArray buffer;
    const int head = receiveHead(server, buffer);
    if (head == 0)
        return false;
    qint64 left = head + lengthOf(buffer.left(head));
    for (;;) {
        if (!Loopback::sendAll(client, buffer.constData(), buffer.size()))
            return false;
        left -= buffer.size();
        buffer.clear();
        if (left <= 0)
            return true;
        if (!receive(server, buffer))
            return false;
    }
}

} // namespace

DelayProxy::DelayProxy(quint16 serverPort)
    : m_serverPort(serverPort)
    , m_listener(Loopback::listen(m_port))
    , m_delayMs(new (::mmap(nullptr, sizeof(std::atomic<int>), PROT_READ | PROT_WRITE,
                            MAP_SHARED | MAP_ANONYMOUS, -1, 0)) std::atomic<int>(0))
{
    m_child = ::fork();
    if (m_child == 0)
        serveForever();
}

DelayProxy::~DelayProxy()
{
    ::kill(m_child, SIGKILL);
    ::waitpid(m_child, nullptr, 0);
    ::close(m_listener);
    ::munmap(m_delayMs, sizeof *m_delayMs);
}

QString DelayProxy::url() const
{
    return QStringLiteral("http://127.0.0.1:%1/").arg(m_port);
}

void DelayProxy::serveForever() const
{
    for (;;) {
        const int client = ::accept(m_listener, nullptr, nullptr);
        if (client >= 0)
            std::thread([this, client] { serve(client); }).detach();
    }
}

int DelayProxy::connectToServer() const
{
    const int server = ::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0);
    const sockaddr_in address = loopback(m_serverPort);
    if (::connect(server, reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0)
        qFatal("the server does not run");
    Loopback::sendAtOnce(server);
    return server;
}

void DelayProxy::serve(int client) const
{
    Loopback::sendAtOnce(client);
    const int server = connectToServer();
    QByteArray buffer;
    for (;;) {
        const int head = receiveHead(client, buffer);
        if (head == 0)
            break;
        std::this_thread::sleep_for(std::chrono::milliseconds(m_delayMs->load()));
        if (!Loopback::sendAll(server, buffer.constData(), head) || !relay(server, client))
            break;
        buffer.remove(0, head);
    }
    ::close(server);
    ::close(client);
}
