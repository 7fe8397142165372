// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "server/InputWatch.h"

#include <algorithm>
#include <mutex>

#include <winsock2.h>

namespace {

/// Returns a socket that is connected to itself, so that what is sent to it arrives at once.
/// Invalid if the system refuses.
SOCKET makeWakingSocket()
{
    const SOCKET made = ::socket(AF_INET, SOCK_DGRAM, 0);
    sockaddr_in address = {};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = ::htonl(INADDR_LOOPBACK);
    auto* const generic = reinterpret_cast<sockaddr*>(&address);
    int length = sizeof address;
    u_long on = 1;
    if (::bind(made, generic, length) == 0 && ::getsockname(made, generic, &length) == 0
        && ::connect(made, generic, length) == 0 && ::ioctlsocket(made, FIONBIO, &on) == 0)
        return made;
    ::closesocket(made);
    return INVALID_SOCKET;
}

} // namespace

class InputWatch::Private
{
public:
    std::vector<WSAPOLLFD> current();
    std::vector<Id> take(const std::vector<WSAPOLLFD>& states);

    const SOCKET waking = makeWakingSocket();

private:
    friend class InputWatch;

    struct Watched
    {
        SOCKET socket;
        Id id;
    };

    std::mutex m_mutex; // guards the next one
    std::vector<Watched> m_watched;
};

/// Returns what to poll: the waking socket, then all others.
std::vector<WSAPOLLFD> InputWatch::Private::current()
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    std::vector<WSAPOLLFD> states = {{waking, POLLIN, 0}};
    for (const Watched& one : m_watched)
        states.push_back({one.socket, POLLIN, 0});
    return states;
}

/// Forgets the sockets that have something to report. Returns them without those that were closed.
std::vector<InputWatch::Id> InputWatch::Private::take(const std::vector<WSAPOLLFD>& states)
{
    std::vector<Id> ids;
    const std::lock_guard<std::mutex> lock(m_mutex);
    for (std::size_t i = 1; i < states.size(); ++i) {
        if (states[i].revents == 0)
            continue;
        const auto found =
            std::find_if(m_watched.begin(), m_watched.end(),
                         [&](const Watched& one) { return one.socket == states[i].fd; });
        if (found == m_watched.end())
            continue;
        if ((states[i].revents & POLLNVAL) == 0)
            ids.push_back(found->id);
        m_watched.erase(found);
    }
    return ids;
}

InputWatch::InputWatch()
    : d(std::make_unique<Private>())
{
}

InputWatch::~InputWatch()
{
    if (isValid())
        ::closesocket(d->waking);
}

bool InputWatch::isValid() const
{
    return d->waking != INVALID_SOCKET;
}

bool InputWatch::add(Sockets::Handle socket, Id id)
{
    {
        const std::lock_guard<std::mutex> lock(d->m_mutex);
        d->m_watched.push_back({socket, id});
    }
    wake(); // the current wait does not know the socket
    return true;
}

bool InputWatch::addAgain(Sockets::Handle socket, Id id)
{
    return add(socket, id);
}

std::vector<InputWatch::Id> InputWatch::wait(int timeoutMs)
{
    std::vector<WSAPOLLFD> states = d->current();
    if (::WSAPoll(states.data(), static_cast<ULONG>(states.size()), timeoutMs) <= 0)
        return {};
    char wakeByte = 0;
    while (::recv(d->waking, &wakeByte, 1, 0) > 0) { }
    return d->take(states);
}

void InputWatch::wake()
{
    const char wakeByte = 1;
    ::send(d->waking, &wakeByte, 1, 0);
}
