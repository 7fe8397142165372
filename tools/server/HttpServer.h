#pragma once

#include "server/Connections.h"

#include <httplib.h>

/// httplib's server on connections that Connections keeps: httplib parses requests and writes
/// answers. Left to itself it would keep one of a few threads busy with every open connection, and
/// it limits neither the time nor the size of a request.
///
/// Answer every request in the handler that httplib calls before its routing: the bodies of
/// requests are not read. A connection ends after a request that has a body or is malformed.
class HttpServer final : public httplib::Server
{
public:
    explicit HttpServer(const ServerLimits& limits);

    /// Binds to a port of 127.0.0.1 that no other server has; 0 takes a free one. Returns the port,
    /// or 0 if it is not free.
    quint16 bind(quint16 port);
    /// Returns whether the system had the descriptors to serve connections.
    bool is_valid() const override { return m_connections.isValid(); }

private:
    bool process_and_close_socket(socket_t socket) override;
    bool answer(ClientStream& client);

    Connections m_connections;
};
