// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QtGlobal>
#include <QThread>

#include <functional>
#include <memory>

class QNetworkAccessManager;

/// A thread with an event loop and a network access manager, since a pool's own thread has neither.
/// It starts with the first run(). The functions belong to one thread.
class NetworkThread
{
public:
    NetworkThread() = default;
    /// Ends the thread and all requests.
    ~NetworkThread();
    Q_DISABLE_COPY_MOVE(NetworkThread)

    /// Calls `work` on the thread, in order, and does not wait.
    void run(const std::function<void(QNetworkAccessManager&)>& work);

private:
    void start();

    std::unique_ptr<QThread> m_thread;
    QNetworkAccessManager* m_manager = nullptr; // belongs to the thread
};
