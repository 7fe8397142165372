// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "server/ClientStream.h"

#include <algorithm>
#include <limits>

namespace {

constexpr size_t maxRequestBytes = 64 * 1024;

} // namespace

ClientStream::ClientStream(Sockets::Handle socket, const ServerLimits& limits)
    : m_socket(socket)
    , m_limits(limits)
    , m_isExhausted(!Sockets::prepare(socket))
    , m_quietSince(Clock::now())
{
}

ClientStream::~ClientStream()
{
    Sockets::shutdown(m_socket);
    Sockets::close(m_socket);
}

int ClientStream::timeoutMs(Clock::time_point end)
{
    const auto left = std::chrono::ceil<std::chrono::milliseconds>(end - Clock::now()).count();
    return static_cast<int>(std::clamp<decltype(left)>(left, 0, std::numeric_limits<int>::max()));
}

void ClientStream::beginRequest()
{
    const Clock::time_point now = Clock::now();
    m_quietSince = now;
    m_requestEnd = now + m_limits.request;
    m_received = m_end - m_next;
}

void ClientStream::giveUp()
{
    m_isGivenUp = true;
    Sockets::shutdown(m_socket);
}

bool ClientStream::is_readable() const
{
    return hasInput() || wait(Sockets::Event::Input, m_requestEnd);
}

bool ClientStream::is_writable() const
{
    return wait(Sockets::Event::Room, Clock::now() + m_limits.stalled);
}

ssize_t ClientStream::read(char* data, size_t size)
{
    if (!hasInput() && !fill())
        return -1;
    const size_t count = std::min(size, m_end - m_next);
    std::copy_n(m_buffer.data() + m_next, count, data);
    m_next += count;
    return static_cast<ssize_t>(count);
}

ssize_t ClientStream::write(const char* data, size_t size)
{
    const Clock::time_point end = Clock::now() + m_limits.stalled;
    for (;;) {
        const std::ptrdiff_t count = Sockets::send(m_socket, data, size);
        if (count >= 0) {
            m_quietSince = Clock::now();
            return count;
        }
        if (count != Sockets::notNow || !wait(Sockets::Event::Room, end)) {
            m_isExhausted = true;
            return -1;
        }
    }
}

void ClientStream::get_remote_ip_and_port(std::string& /*ip*/, int& /*port*/) const { }

void ClientStream::get_local_ip_and_port(std::string& /*ip*/, int& /*port*/) const { }

/// Receives more of the request. Returns false if nothing more can be read.
bool ClientStream::fill()
{
    const size_t room = std::min(m_buffer.size(), maxRequestBytes - m_received);
    while (room > 0 && !m_isExhausted) {
        const std::ptrdiff_t count = Sockets::receive(m_socket, m_buffer.data(), room);
        if (count > 0) {
            m_next = 0;
            m_end = static_cast<size_t>(count);
            m_received += m_end;
            return true;
        }
        if (count != Sockets::notNow)
            break;
        m_isOverdue = !wait(Sockets::Event::Input, m_requestEnd);
        m_isExhausted = m_isOverdue;
    }
    m_isExhausted = true;
    return false;
}

/// Waits until the socket is ready for the event or has failed. Returns false on a timeout.
bool ClientStream::wait(Sockets::Event event, Clock::time_point end) const
{
    for (;;) {
        const int left = timeoutMs(end);
        if (left == 0)
            return false;
        if (Sockets::wait(m_socket, event, left))
            return true;
    }
}
