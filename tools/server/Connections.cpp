// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "server/Connections.h"

#include <algorithm>
#include <vector>

namespace {

/// A client that has been quiet for less time is never cut off, however many others wait.
constexpr std::chrono::milliseconds patience(200);
/// Pause between two checks for quiet clients while others wait.
constexpr std::chrono::milliseconds lookPause(50);

} // namespace

Connections::Connections(const ServerLimits& limits, Answer answer)
    : m_limits(limits)
    , m_answer(std::move(answer))
    , m_workers(limits.requests)
{
    if (m_watch.isValid())
        m_watcher = std::thread(&Connections::watch, this);
}

Connections::~Connections()
{
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_isEnding = true;
        for (auto& [id, connection] : m_connections)
            connection.client->giveUp();
    }
    m_watch.wake();
    if (m_watcher.joinable())
        m_watcher.join();
}

bool Connections::isValid() const
{
    return m_watcher.joinable();
}

void Connections::add(Sockets::Handle socket)
{
    Connection connection;
    connection.client = std::make_unique<ClientStream>(socket, m_limits);
    connection.idleSince = Clock::now();
    const std::lock_guard<std::mutex> lock(m_mutex);
    const bool isFull = m_connections.size() >= static_cast<size_t>(m_limits.connections);
    if (m_isEnding || (isFull && !closeLongestIdle()))
        return;
    const auto place = m_connections.emplace(++m_lastId, std::move(connection)).first;
    if (!m_watch.add(socket, place->first))
        m_connections.erase(place);
}

/// Runs on a separate thread until the connections end.
void Connections::watch()
{
    Clock::time_point closing = Clock::now() + m_limits.idle;
    Clock::time_point next = closing;
    for (;;) {
        const std::vector<Id> begun = m_watch.wait(ClientStream::timeoutMs(next));
        const std::lock_guard<std::mutex> lock(m_mutex);
        if (m_isEnding)
            return;
        for (const Id id : begun)
            beginRequest(id);
        const Clock::time_point now = Clock::now();
        // A connection that becomes idle meanwhile is not due before the time returned by
        // closeIdle().
        if (now >= closing)
            closing = closeIdle(now);
        next = std::min(closing, makeWay(now));
    }
}

void Connections::beginRequest(Id id)
{
    const auto found = m_connections.find(id);
    if (found == m_connections.end())
        return; // replaced by another connection meanwhile
    found->second.state = State::Waiting;
    ++m_waiting;
    m_workers.start([this, id] { serve(id); });
}

/// Runs on a thread of the pool.
void Connections::serve(Id id)
{
    std::unique_lock<std::mutex> lock(m_mutex);
    const auto place = m_connections.find(id);
    Connection& connection = place->second;
    connection.state = State::Served;
    --m_waiting;
    ++m_served;
    lock.unlock();

    bool isOpen = true;
    do
        isOpen = m_answer(*connection.client);
    while (isOpen && connection.client->hasInput());

    lock.lock();
    --m_served;
    connection.state = State::Idle;
    connection.idleSince = Clock::now();
    if (!isOpen || m_isEnding || !m_watch.addAgain(connection.client->socket(), id))
        m_connections.erase(id);
}

/// Closes the connections that have been idle for too long. Returns the time of the next check.
Connections::Clock::time_point Connections::closeIdle(Clock::time_point now)
{
    Clock::time_point next = now + m_limits.idle;
    for (auto place = m_connections.begin(); place != m_connections.end();) {
        const Clock::time_point due = place->second.idleSince + m_limits.idle;
        const bool isIdle = place->second.state == State::Idle;
        if (isIdle && due > now)
            next = std::min(next, due);
        place = isIdle && due <= now ? m_connections.erase(place) : std::next(place);
    }
    return next;
}

/// Cuts off the clients that have been quiet longest, one for each client waiting for a thread.
/// Returns the time of the next check.
Connections::Clock::time_point Connections::makeWay(Clock::time_point now)
{
    if (m_waiting == 0)
        return Clock::time_point::max();
    if (m_served < m_limits.requests)
        return now + lookPause;
    int wanted = m_waiting;
    std::vector<std::pair<Clock::time_point, ClientStream*>> quiet;
    for (auto& [id, connection] : m_connections) {
        if (connection.state != State::Served)
            continue;
        ClientStream& client = *connection.client;
        const Clock::time_point since = client.quietSince();
        if (client.isGivenUp())
            --wanted; // its thread is about to be free
        else if (now - since >= patience)
            quiet.emplace_back(since, &client);
    }
    std::sort(quiet.begin(), quiet.end());
    for (size_t i = 0; i < quiet.size() && static_cast<int>(i) < wanted; ++i)
        quiet[i].second->giveUp();
    return now + lookPause;
}

/// Returns false if no connection is idle.
bool Connections::closeLongestIdle()
{
    auto longest = m_connections.end();
    for (auto place = m_connections.begin(); place != m_connections.end(); ++place) {
        if (place->second.state == State::Idle
            && (longest == m_connections.end()
                || place->second.idleSince < longest->second.idleSince))
            longest = place;
    }
    if (longest == m_connections.end())
        return false;
    m_connections.erase(longest);
    return true;
}
