// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "host/CancelToken.h"

#include <condition_variable>
#include <mutex>

struct CancelToken::State
{
    std::mutex mutex; // guards isCancelled
    std::condition_variable changed;
    bool isCancelled = false;
};

CancelToken::CancelToken()
    : m_state(std::make_shared<State>())
{
}

void CancelToken::cancel()
{
    {
        const std::lock_guard<std::mutex> lock(m_state->mutex);
        m_state->isCancelled = true;
    }
    m_state->changed.notify_all();
}

bool CancelToken::isCancelled() const
{
    const std::lock_guard<std::mutex> lock(m_state->mutex);
    return m_state->isCancelled;
}

bool CancelToken::waitFor(std::chrono::milliseconds duration) const
{
    std::unique_lock<std::mutex> lock(m_state->mutex);
    return m_state->changed.wait_for(lock, duration, [this] { return m_state->isCancelled; });
}
