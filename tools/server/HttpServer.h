// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "server/Connections.h"

#include <httplib.h>

/// httplib's server on the connections managed by Connections: httplib parses requests and writes
/// answers. On its own it would block one of a few threads for every open connection, and it limits
/// neither the time nor the size of a request.
///
/// Answer every request in the handler that httplib calls before its routing: request bodies are
/// not read. A connection ends after a request that has a body or is malformed.
class HttpServer final : public httplib::Server
{
public:
    explicit HttpServer(const ServerLimits& limits);

    /// Binds to a port of 127.0.0.1 that no other server uses; 0 picks a free one. Returns the
    /// port, or 0 if it is taken.
    quint16 bind(quint16 port);
    /// Returns whether connections can be served.
    bool is_valid() const override { return m_connections.isValid(); }

private:
    bool process_and_close_socket(socket_t socket) override;
    bool answer(ClientStream& client);

    Connections m_connections;
};
