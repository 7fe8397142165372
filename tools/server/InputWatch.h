// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "server/Sockets.h"

#include <memory>
#include <vector>

/// Watches many sockets for input on one thread. A socket that is closed is forgotten.
class InputWatch
{
public:
    /// The owner's name of a socket, not 0.
    using Id = quint64;

    InputWatch();
    ~InputWatch();
    Q_DISABLE_COPY_MOVE(InputWatch)

    /// Returns whether the system has given what watching takes.
    bool isValid() const;

    /// Makes wait() report the next input of the socket, or its end, once. Returns false if the
    /// socket cannot be watched. Any thread, also during wait().
    bool add(Sockets::Handle socket, Id id);
    /// Does the same for a socket that was added before and has been reported.
    bool addAgain(Sockets::Handle socket, Id id);

    /// Waits for input, wake(), or the end of the time. Returns the sockets with input, of which
    /// some may have been closed meanwhile.
    std::vector<Id> wait(int timeoutMs);
    /// Makes the current wait(), or the next, return. Any thread.
    void wake();

private:
    class Private; // of the system
    std::unique_ptr<Private> d;
};
