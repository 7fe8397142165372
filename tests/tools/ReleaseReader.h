// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QStringList>
#include <QtGlobal>

#include <atomic>
#include <set>
#include <thread>

/// A client that reads the release again and again on a thread of its own, while uploads run.
class ReleaseReader
{
public:
    explicit ReleaseReader(quint16 port);
    ~ReleaseReader() { stop(); }
    Q_DISABLE_COPY_MOVE(ReleaseReader)

    void stop();
    /// Return what it has met; after stop().
    QStringList faults() const { return m_faults; }
    const std::set<qint64>& serials() const { return m_serials; }

private:
    void read(quint16 port);

    std::atomic<bool> m_isStopped{false};
    QStringList m_faults;
    std::set<qint64> m_serials;
    std::thread m_thread;
};
