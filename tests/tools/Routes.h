#pragma once

#include "support/FaultServer.h"

#include <QMap>

#include <atomic>
#include <memory>

/// What a FaultServer does for each target.
class Routes
{
public:
    Routes() = delete;

    using Map = QMap<QByteArray, FaultServer::Handler>;

    /// Answers by target; unknown ones with 404.
    static FaultServer::Handler by(const Map& handlers);
    /// 200 and a body.
    static FaultServer::Handler body(const QByteArray& bytes);
    /// 200 and what begins as a ZIP archive.
    static FaultServer::Handler archive(int size = 5) { return body(archiveBytes(size)); }
    static QByteArray archiveBytes(int size = 5)
    {
        return "PK\x03\x04" + QByteArray(size - 4, 'z');
    }
    /// 200, the beginning of a body, and then nothing more.
    static FaultServer::Handler stall();
};

/// Lets every answer wait in its middle until the test goes on, or ends.
class Gate
{
public:
    Gate();
    ~Gate();
    Q_DISABLE_COPY_MOVE(Gate)

    /// 200, half of the body, and the rest after one more call of open().
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
