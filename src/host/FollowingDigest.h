// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "host/ContentDigest.h"

#include <QByteArray>
#include <QtGlobal>

#include <condition_variable>
#include <memory>
#include <mutex>
#include <thread>

/// Computes the digest of a file while another thread appends to it, on a thread of its own: a
/// large download would otherwise take half as long again. Internal to the library; one thread
/// makes all calls.
class FollowingDigest
{
public:
    /// Goes on with `digest`, which covers the first `position` bytes of the open file. The handle
    /// is the caller's and must stay open as long as the object exists.
    FollowingDigest(int handle, std::unique_ptr<ContentDigest> digest, qint64 position);
    /// Stops reading.
    ~FollowingDigest();
    Q_DISABLE_COPY_MOVE(FollowingDigest)

    /// Tells that the file has this size now.
    void advanceTo(qint64 size);
    /// Waits until all bytes up to the last size are read, and returns their digest; empty if
    /// reading failed.
    QByteArray hex();

private:
    void run();
    bool read(qint64 end);

    const int m_handle;
    const std::unique_ptr<ContentDigest> m_digest; // the thread's, while m_isBusy
    qint64 m_position;                             // likewise
    QByteArray m_buffer;                           // likewise

    std::mutex m_mutex; // guards the four members below
    std::condition_variable m_changed;
    qint64 m_size;
    bool m_isBusy = true;
    bool m_isStopped = false;
    bool m_hasFailed = false; // of the thread, read after hex() has waited
    std::thread m_thread;     // the last member: uses all others
};
