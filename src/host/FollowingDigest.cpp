// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "host/FollowingDigest.h"

#include "host/SystemFile.h"

#include <algorithm>
#include <utility>

namespace {

constexpr int stepBytes = 256 * 1024;

} // namespace

FollowingDigest::FollowingDigest(int handle, std::unique_ptr<ContentDigest> digest, qint64 position)
    : m_handle(handle)
    , m_digest(std::move(digest))
    , m_position(position)
    , m_buffer(stepBytes, Qt::Uninitialized)
    , m_size(position)
    , m_thread([this] { run(); })
{
}

FollowingDigest::~FollowingDigest()
{
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_isStopped = true;
    }
    m_changed.notify_all();
    m_thread.join();
}

/// Wakes the thread for whole chunks only: the rest is read by hex().
void FollowingDigest::advanceTo(qint64 size)
{
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        const bool isWorthIt = size / stepBytes != m_size / stepBytes;
        m_size = size;
        if (!isWorthIt)
            return;
    }
    m_changed.notify_all();
}

QByteArray FollowingDigest::hex()
{
    std::unique_lock<std::mutex> lock(m_mutex);
    m_changed.notify_all();
    m_changed.wait(lock, [this] { return m_hasFailed || (!m_isBusy && m_position == m_size); });
    return m_hasFailed ? QByteArray() : m_digest->hex();
}

void FollowingDigest::run()
{
    std::unique_lock<std::mutex> lock(m_mutex);
    while (!m_isStopped && !m_hasFailed) {
        if (m_position == m_size) {
            m_isBusy = false;
            m_changed.notify_all();
            m_changed.wait(lock, [this] { return m_isStopped || m_position != m_size; });
            m_isBusy = true;
            continue;
        }
        const qint64 end = std::min(m_size, m_position + stepBytes);
        lock.unlock();
        const bool isRead = read(end);
        lock.lock();
        m_hasFailed = !isRead;
    }
    m_isBusy = false;
    m_changed.notify_all();
}

bool FollowingDigest::read(qint64 end)
{
    while (m_position < end) {
        const qint64 length =
            SystemFile::readAt(m_handle, m_buffer.data(), end - m_position, m_position);
        if (length <= 0)
            return false;
        m_digest->add(m_buffer.constData(), length);
        m_position += length;
    }
    return true;
}
