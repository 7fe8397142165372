#pragma once

#include "tsan/QtOrder.h"

/// The application object of a test program under ThreadSanitizer; every event of every thread
/// passes it.
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
