// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "support/FaultServer.h"

#include <QMap>

#include <atomic>
#include <memory>

/// Maps the targets of a FaultServer to answers.
class Routes
{
public:
    Routes() = delete;

    using Map = QMap<QByteArray, FaultServer::Handler>;

    /// Answers by target; unknown targets get 404.
    static FaultServer::Handler by(const Map& handlers);
    /// Answers 200 with a body.
    static FaultServer::Handler body(const QByteArray& bytes);
    /// Answers 200 with the beginning of a ZIP archive.
    static FaultServer::Handler archive(int size = 5) { return body(archiveBytes(size)); }
    static QByteArray archiveBytes(int size = 5)
    {
        return "PK\x03\x04" + QByteArray(size - 4, 'z');
    }
    /// Answers 200 with the beginning of a body, then stalls.
    static FaultServer::Handler stall();
};

/// Holds every answer halfway until the test calls open() or ends.
class Gate
{
public:
    Gate();
    ~Gate();
    Q_DISABLE_COPY_MOVE(Gate)

    /// Answers 200 with half of the body, and the rest after one more call of open().
    FaultServer::Handler body(const QByteArray& bytes);
    void open();

private:
    struct State
    {
        std::atomic<int> arrived{0};
        std::atomic<int> opened{0};
    };
    std::shared_ptr<State> m_state; // shared with the handlers: a server may live longer
};
