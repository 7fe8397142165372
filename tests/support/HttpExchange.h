#pragma once

#include <QByteArray>
#include <QMap>

#include <atomic>
#include <chrono>

class HttpAnswer;

/// One request as it came.
struct HttpRequest
{
    QByteArray method;
    QByteArray target;                   ///< as on the request line, undecoded
    QMap<QByteArray, QByteArray> fields; ///< by lower-case name
    int connection = 0;                  ///< number of the connection it came over, from 1
};

/// A request and the way to answer it, well or badly. Lives on the connection's thread.
class HttpExchange
{
public:
    HttpExchange(int socket, HttpRequest request, const std::atomic<bool>& stopping);

    const HttpRequest& request() const { return m_request; }

    /// Sends an answer; the connection stays open for the next request.
    void answer(const HttpAnswer& answer);
    /// Sends bytes as they stand.
    void send(const QByteArray& bytes);
    /// Ends the connection in order, as after a complete answer.
    void close();
    /// Breaks the connection: the client sees a reset.
    void reset();
    /// Sends nothing until the client goes away or the server stops.
    void stall();
    /// Waits, but not longer than the server lives.
    void pause(std::chrono::milliseconds time) const;

    bool isOpen() const { return m_open; }

private:
    bool clientIsGone() const;

    int m_socket;
    HttpRequest m_request;
    const std::atomic<bool>& m_stopping;
    bool m_open = true;
};
