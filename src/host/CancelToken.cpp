// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "host/CancelToken.h"

#include <atomic>
#include <condition_variable>
#include <mutex>

struct CancelToken::State
{
    std::atomic<bool> cancelled{false};
    std::mutex mutex; // makes changing `cancelled` and starting to wait for it atomic
    std::condition_variable changed;
};

CancelToken::CancelToken()
    : m_state(std::make_shared<State>())
{
}

void CancelToken::cancel()
{
    {
        const std::lock_guard<std::mutex> lock(m_state->mutex);
        m_state->cancelled = true;
    }
    m_state->changed.notify_all();
}

bool CancelToken::isCancelled() const
{
    return m_state->cancelled;
}

bool CancelToken::waitFor(std::chrono::milliseconds duration) const
{
    std::unique_lock<std::mutex> lock(m_state->mutex);
    return m_state->changed.wait_for(lock, duration, [this] { return m_state->cancelled.load(); });
}
