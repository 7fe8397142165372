// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "server/InputWatch.h"

#include <array>

#include <sys/epoll.h>
#include <sys/eventfd.h>
#include <unistd.h>

namespace {

constexpr InputWatch::Id wakeId = 0; // no socket has it

bool watch(int events, int operation, int descriptor, quint32 kinds, InputWatch::Id id)
{
    epoll_event event = {};
    event.events = kinds;
    event.data.u64 = id;
    return ::epoll_ctl(events, operation, descriptor, &event) == 0;
}

} // namespace

class InputWatch::Private
{
public:
    int events = ::epoll_create1(EPOLL_CLOEXEC);
    int waking = ::eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK);
    bool isValid = false;
};

InputWatch::InputWatch()
    : d(std::make_unique<Private>())
{
    d->isValid = watch(d->events, EPOLL_CTL_ADD, d->waking, EPOLLIN, wakeId);
}

InputWatch::~InputWatch()
{
    ::close(d->events);
    ::close(d->waking);
}

bool InputWatch::isValid() const
{
    return d->isValid;
}

bool InputWatch::add(Sockets::Handle socket, Id id)
{
    return watch(d->events, EPOLL_CTL_ADD, socket, EPOLLIN | EPOLLONESHOT, id);
}

bool InputWatch::addAgain(Sockets::Handle socket, Id id)
{
    return watch(d->events, EPOLL_CTL_MOD, socket, EPOLLIN | EPOLLONESHOT, id);
}

std::vector<InputWatch::Id> InputWatch::wait(int timeoutMs)
{
    std::array<epoll_event, 64> events = {};
    const int count =
        ::epoll_wait(d->events, events.data(), static_cast<int>(events.size()), timeoutMs);
    std::vector<Id> ids;
    for (int i = 0; i < count; ++i) {
        const Id id = events.at(static_cast<std::size_t>(i)).data.u64;
        eventfd_t wakes = 0;
        if (id == wakeId)
            ::eventfd_read(d->waking, &wakes);
        else
            ids.push_back(id);
    }
    return ids;
}

void InputWatch::wake()
{
    ::eventfd_write(d->waking, 1);
}
