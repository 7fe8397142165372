// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "server/HttpServer.h"

#include "server/Sockets.h"

namespace {

constexpr const char* loopback = "127.0.0.1";

/// Send buffer of a connection, which the kernel doubles. By default it grows to megabytes, and the
/// kernel reports room only when a third is free: a slow reader would seem stalled for minutes.
constexpr int usualSendBufferBytes = 64 * 1024;

/// Runs tasks on the accepting thread, which only passes on sockets and never blocks.
class DirectTasks final : public httplib::TaskQueue
{
public:
    void enqueue(std::function<void()> task) override { task(); }
    void shutdown() override { }
};

/// The client whose request this thread is answering, for httplib's handlers.
thread_local ClientStream* currentClient = nullptr;

/// Corrects the answer that httplib is about to send.
void finishAnswer(const httplib::Request& request, httplib::Response& response)
{
    if (response.status == 400 && currentClient->isOverdue())
        response.status = 408;
    // Otherwise the rest of this request would be parsed as the next one.
    constexpr int notFound = 404;
    constexpr int noSuchRange = 416;
    const bool isUnderstood =
        response.status < 400 || response.status == notFound || response.status == noSuchRange;
    const bool hasBody =
        request.has_header("Content-Length") || request.has_header("Transfer-Encoding");
    if (isUnderstood && !hasBody)
        return;
    currentClient->endAfterAnswer();
    response.headers.erase("Keep-Alive");
    response.headers.erase("Connection");
    response.set_header("Connection", "close");
}

} // namespace

HttpServer::HttpServer(const ServerLimits& limits)
    : m_connections(limits, [this](ClientStream& client) { return answer(client); })
{
    new_task_queue = [] { return new DirectTasks; };
    // httplib's own options would let a second server bind the same port, and each would get some
    // of the requests.
    set_socket_options(
        [](socket_t socket) { Sockets::prepareListener(socket, usualSendBufferBytes); });
    // Head and body of an answer are written separately: the second must not wait for the
    // acknowledgement of the first.
    set_tcp_nodelay(true);
    // These two only fill the Keep-Alive field.
    set_keep_alive_max_count(1000000);
    set_keep_alive_timeout(std::chrono::floor<std::chrono::seconds>(limits.idle).count());
    set_post_routing_handler(&finishAnswer);
}

quint16 HttpServer::bind(quint16 port)
{
    int bound = port;
    if (port == 0)
        bound = bind_to_any_port(loopback);
    else if (!bind_to_port(loopback, port))
        return 0;
    if (bound <= 0)
        return 0;
    // httplib sets a backlog of 5; a further client would retry only after a second.
    Sockets::extendBacklog(svr_sock_);
    return static_cast<quint16>(bound);
}

bool HttpServer::process_and_close_socket(socket_t socket)
{
    m_connections.add(socket);
    return true;
}

bool HttpServer::answer(ClientStream& client)
{
    client.beginRequest();
    currentClient = &client;
    bool isClosed = false;
    const bool isAnswered = process_request(client, false, isClosed, nullptr);
    currentClient = nullptr;
    return isAnswered && !isClosed && !client.isExhausted();
}
