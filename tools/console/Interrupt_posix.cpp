// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "Interrupt.h"

#include <QSocketNotifier>

#include <csignal>

#include <sys/socket.h>
#include <unistd.h>

namespace {

int ends[2] = {-1, -1}; // a signal handler may only write; the event loop reads the other end

void handle(int)
{
    const char byte = 1;
    const ssize_t written = ::write(ends[0], &byte, sizeof byte);
    Q_UNUSED(written)
}

void install(int number)
{
    struct sigaction action = {};
    action.sa_handler = &handle;
    action.sa_flags = static_cast<int>(SA_RESTART | SA_RESETHAND);
    ::sigaction(number, &action, nullptr);
}

} // namespace

class Interrupt::Private
{
public:
    std::unique_ptr<QSocketNotifier> notifier;
};

Interrupt::Interrupt()
    : d(std::make_unique<Private>())
{
    if (::socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends) != 0)
        return; // an interrupt then ends the process at once
    d->notifier = std::make_unique<QSocketNotifier>(ends[1], QSocketNotifier::Read);
    connect(d->notifier.get(), &QSocketNotifier::activated, this, [this] {
        d->notifier->setEnabled(false);
        emit requested();
    });
    install(SIGINT);
    install(SIGTERM);
}

Interrupt::~Interrupt()
{
    std::signal(SIGINT, SIG_DFL);
    std::signal(SIGTERM, SIG_DFL);
    for (int& end : ends) {
        ::close(end);
        end = -1;
    }
}
