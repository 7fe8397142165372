// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "server/ClientStream.h"

#include <algorithm>
#include <cerrno>
#include <limits>

#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

namespace {

constexpr size_t maxRequestBytes = 64 * 1024;

bool isTemporary(int error)
{
    return error == EAGAIN || error == EWOULDBLOCK || error == EINTR;
}

} // namespace

ClientStream::ClientStream(int socket, const ServerLimits& limits)
    : m_socket(socket)
    , m_limits(limits)
    , m_quietSince(Clock::now())
{
}

ClientStream::~ClientStream()
{
    ::shutdown(m_socket, SHUT_RDWR);
    ::close(m_socket);
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
    ::shutdown(m_socket, SHUT_RDWR);
}

bool ClientStream::is_readable() const
{
    return hasInput() || wait(POLLIN, m_requestEnd);
}

bool ClientStream::is_writable() const
{
    return wait(POLLOUT, Clock::now() + m_limits.stalled);
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
        const ssize_t count = ::send(m_socket, data, size, MSG_DONTWAIT | MSG_NOSIGNAL);
        if (count >= 0) {
            m_quietSince = Clock::now();
            return count;
        }
        if (!isTemporary(errno) || !wait(POLLOUT, end)) {
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
        const ssize_t count = ::recv(m_socket, m_buffer.data(), room, MSG_DONTWAIT);
        if (count > 0) {
            m_next = 0;
            m_end = static_cast<size_t>(count);
            m_received += m_end;
            return true;
        }
        if (count == 0 || !isTemporary(errno))
            break;
        m_isOverdue = !wait(POLLIN, m_requestEnd);
        m_isExhausted = m_isOverdue;
    }
    m_isExhausted = true;
    return false;
}

/// Waits until the socket is ready for the event or has failed. Returns false on a timeout.
bool ClientStream::wait(short event, Clock::time_point end) const
{
    for (;;) {
        pollfd state = {m_socket, event, 0};
        const int left = timeoutMs(end);
        if (left == 0)
            return false;
        if (::poll(&state, 1, left) > 0)
            return true;
    }
}
