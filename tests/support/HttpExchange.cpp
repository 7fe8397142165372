// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "support/HttpExchange.h"

#include "support/HttpAnswer.h"

#include <thread>

#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

namespace {

constexpr std::chrono::milliseconds tick(10);

} // namespace

HttpExchange::HttpExchange(int socket, HttpRequest request, const std::atomic<bool>& stopping)
    : m_socket(socket)
    , m_request(std::move(request))
    , m_stopping(stopping)
{
}

void HttpExchange::answer(const HttpAnswer& answer)
{
    send(answer.bytes());
}

void HttpExchange::send(const QByteArray& bytes)
{
    const char* at = bytes.constData();
    std::size_t left = static_cast<std::size_t>(bytes.size());
    while (m_open && left > 0) {
        const ssize_t sent = ::send(m_socket, at, left, MSG_NOSIGNAL);
        if (sent <= 0) {
            m_open = false;
            return;
        }
        at += sent;
        left -= static_cast<std::size_t>(sent);
    }
}

void HttpExchange::close()
{
    ::shutdown(m_socket, SHUT_WR);
    m_open = false;
}

void HttpExchange::reset()
{
    // The kernel needs a moment to send queued data before a reset.
    std::this_thread::sleep_for(tick * 5);
    const linger abort = {1, 0};
    ::setsockopt(m_socket, SOL_SOCKET, SO_LINGER, &abort, sizeof abort);
    m_open = false;
}

void HttpExchange::stall()
{
    while (!m_stopping && !clientIsGone())
        std::this_thread::sleep_for(tick);
    m_open = false;
}

void HttpExchange::pause(std::chrono::milliseconds time) const
{
    const auto end = std::chrono::steady_clock::now() + time;
    while (!m_stopping && std::chrono::steady_clock::now() < end)
        std::this_thread::sleep_for(tick);
}

bool HttpExchange::clientIsGone() const
{
    pollfd descriptor = {m_socket, POLLIN | POLLRDHUP, 0};
    return ::poll(&descriptor, 1, 0) > 0;
}
