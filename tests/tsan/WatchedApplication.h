// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "tsan/QtOrder.h"

/// The application object of a test program under ThreadSanitizer; it sees every event of every
/// thread.
template <class Application>
class WatchedApplication : public Application
{
public:
    using Application::Application;

    bool notify(QObject* receiver, QEvent* event) override
    {
        QtOrder::delivering(receiver, event);
        return Application::notify(receiver, event);
    }
};
