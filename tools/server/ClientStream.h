// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "server/ServerLimits.h"
#include "server/Sockets.h"

#include <QtGlobal>

#include <array>
#include <atomic>
#include <chrono>

#include <httplib.h>

/// The socket of one client, from which httplib reads requests and to which it writes answers,
/// within the server's limits. One thread at a time uses a stream; quietSince(), giveUp() and
/// isGivenUp() may be called on any other meanwhile.
class ClientStream final : public httplib::Stream
{
public:
    using Clock = std::chrono::steady_clock;

    /// Takes ownership of a connected socket.
    ClientStream(Sockets::Handle socket, const ServerLimits& limits);
    /// Closes the connection.
    ~ClientStream() override;
    Q_DISABLE_COPY_MOVE(ClientStream)

    /// Returns the time until `end`, as the system waits; 0 once it has passed.
    static int timeoutMs(Clock::time_point end);

    /// Starts counting the time and the size of a request. Call it when one begins to arrive.
    void beginRequest();
    /// Returns whether the current request did not arrive in time, or giveUp() was called.
    bool isOverdue() const { return m_isOverdue || m_isGivenUp; }
    /// Returns whether no further request can be read: the connection has ended or failed, a
    /// request was overdue or larger than 64 KiB, or endAfterAnswer() was called.
    bool isExhausted() const { return m_isExhausted || m_isGivenUp; }
    /// Makes the current request the last one of the connection.
    void endAfterAnswer() { m_isExhausted = true; }
    /// Returns whether part of the next request has already been received.
    bool hasInput() const { return m_next < m_end; }

    /// Returns the time when the current request began or, once it is being answered, when the
    /// client last took a part of the answer.
    Clock::time_point quietSince() const { return m_quietSince; }
    /// Ends reading and writing at once.
    void giveUp();
    bool isGivenUp() const { return m_isGivenUp; }

    bool is_readable() const override;
    bool is_writable() const override;
    ssize_t read(char* data, size_t size) override;
    ssize_t write(const char* data, size_t size) override;
    /// Leave their arguments unset: no handler needs addresses, as all clients are on this machine.
    void get_remote_ip_and_port(std::string& ip, int& port) const override;
    void get_local_ip_and_port(std::string& ip, int& port) const override;
    socket_t socket() const override { return m_socket; }

private:
    bool fill();
    bool wait(Sockets::Event event, Clock::time_point end) const;

    const Sockets::Handle m_socket;
    const ServerLimits m_limits;
    std::array<char, 4096> m_buffer = {};
    size_t m_next = 0;     // start of the unread data in the buffer
    size_t m_end = 0;      // end of the unread data
    size_t m_received = 0; // bytes of the current request
    Clock::time_point m_requestEnd;
    bool m_isOverdue = false;
    bool m_isExhausted = false;
    std::atomic<Clock::time_point> m_quietSince;
    std::atomic<bool> m_isGivenUp = false;
};
