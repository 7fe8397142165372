// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "keys/SilentTerminal.h"

#include <cerrno>

#include <fcntl.h>
#include <termios.h>
#include <unistd.h>

class SilentTerminal::Private
{
public:
    int handle = ::open("/dev/tty", O_RDWR | O_CLOEXEC);
    termios before = {};
    bool isSilent = false;
};

SilentTerminal::SilentTerminal()
    : d(std::make_unique<Private>())
{
    if (d->handle < 0 || ::tcgetattr(d->handle, &d->before) != 0)
        return;
    termios silent = d->before;
    silent.c_lflag &= ~static_cast<tcflag_t>(ECHO | ECHONL | ICANON | ISIG);
    silent.c_cc[VMIN] = 1;
    silent.c_cc[VTIME] = 0;
    d->isSilent = ::tcsetattr(d->handle, TCSAFLUSH, &silent) == 0;
}

SilentTerminal::~SilentTerminal()
{
    if (d->isSilent)
        ::tcsetattr(d->handle, TCSAFLUSH, &d->before);
    if (d->handle >= 0)
        ::close(d->handle);
}

bool SilentTerminal::isSilent() const
{
    return d->isSilent;
}

void SilentTerminal::print(const QByteArray& text) const
{
    const ssize_t written =
        ::write(d->handle, text.constData(), static_cast<std::size_t>(text.size()));
    Q_UNUSED(written)
}

bool SilentTerminal::readByte(char& byte) const
{
    ssize_t count = 0;
    do {
        count = ::read(d->handle, &byte, 1);
    } while (count < 0 && errno == EINTR);
    return count == 1;
}
