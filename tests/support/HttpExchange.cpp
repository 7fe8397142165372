// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "support/HttpExchange.h"

#include "support/HttpAnswer.h"
#include "support/TestSocket.h"

#include <thread>

namespace {

constexpr std::chrono::milliseconds tick(10);

} // namespace

HttpExchange::HttpExchange(TestSocket::Handle socket, HttpRequest request,
                           const std::atomic<bool>& stopping)
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
        const std::ptrdiff_t sent = TestSocket::send(m_socket, at, left);
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
    TestSocket::endSending(m_socket);
    m_open = false;
}

void HttpExchange::reset()
{
    // The kernel needs a moment to send queued data before a reset.
    std::this_thread::sleep_for(tick * 5);
    TestSocket::resetOnClose(m_socket);
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
    return TestSocket::isReadable(m_socket, 0); // so is the end of the connection
}
