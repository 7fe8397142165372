// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "server/ClientStream.h"
#include "server/InputWatch.h"
#include "server/ServerLimits.h"
#include "server/WorkerPool.h"

#include <functional>
#include <memory>
#include <mutex>
#include <thread>
#include <unordered_map>
#include <utility>

/// The open connections of a server. One thread watches all idle ones; a connection occupies a
/// thread of the pool only from the first byte of a request to the end of its answer.
class Connections
{
public:
    /// Reads and answers a request, on a thread of the pool. Returns whether the connection can
    /// carry another request.
    using Answer = std::function<bool(ClientStream& client)>;

    Connections(const ServerLimits& limits, Answer answer);
    /// Ends all connections at once and joins the threads.
    ~Connections();
    Q_DISABLE_COPY_MOVE(Connections)

    /// Returns whether connections can be watched; otherwise none is served.
    bool isValid() const;

    /// Takes ownership of a connected socket. Closes it if there are too many connections and none
    /// is idle. Any thread.
    void add(Sockets::Handle socket);

private:
    using Clock = ClientStream::Clock;
    using Id = InputWatch::Id;

    enum class State {
        Idle,    ///< watched, until a request begins
        Waiting, ///< for a thread
        Served,  ///< by a thread, which may use it without the mutex
    };
    struct Connection
    {
        std::unique_ptr<ClientStream> client;
        Clock::time_point idleSince;
        State state = State::Idle;
    };

    void watch();
    void beginRequest(Id id);
    void serve(Id id);
    Clock::time_point closeIdle(Clock::time_point now);
    Clock::time_point makeWay(Clock::time_point now);
    bool closeLongestIdle();

    const ServerLimits m_limits;
    const Answer m_answer;
    InputWatch m_watch;
    std::mutex m_mutex; // guards the next five
    std::unordered_map<Id, Connection> m_connections;
    Id m_lastId = 0;
    int m_waiting = 0; // connections in these states
    int m_served = 0;
    bool m_isEnding = false;
    WorkerPool m_workers; // joins its threads before the rest is destroyed
    std::thread m_watcher;
};
