// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QtGlobal>

/// Answers every request for "/SIZE/..." with SIZE bytes, over persistent connections. Runs in a
/// separate process, so that its work does not count as the client's.
class BodyServer
{
public:
    BodyServer();
    ~BodyServer();
    Q_DISABLE_COPY_MOVE(BodyServer)

    quint16 port() const { return m_port; }

    /// Serves one connection after another until the process ends.
    [[noreturn]] void serveForever() const;

private:
    void serve(int socket) const;

    quint16 m_port = 0; // initialised before m_listener, which sets it
    int m_listener;
};
