// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "keys/SilentTerminal.h"

#include <windows.h>

namespace {

constexpr DWORD shareAll = FILE_SHARE_READ | FILE_SHARE_WRITE;

HANDLE openConsole(const wchar_t* name)
{
    return ::CreateFileW(name, GENERIC_READ | GENERIC_WRITE, shareAll, nullptr, OPEN_EXISTING, 0,
                         nullptr);
}

} // namespace

class SilentTerminal::Private
{
public:
    HANDLE in = openConsole(L"CONIN$");
    HANDLE out = openConsole(L"CONOUT$");
    DWORD before = 0;
    bool isSilent = false;
};

SilentTerminal::SilentTerminal()
    : d(std::make_unique<Private>())
{
    if (::GetConsoleMode(d->in, &d->before) == 0)
        return;
    constexpr DWORD shown = ENABLE_ECHO_INPUT | ENABLE_LINE_INPUT | ENABLE_PROCESSED_INPUT;
    d->isSilent = ::SetConsoleMode(d->in, d->before & ~shown) != 0;
}

SilentTerminal::~SilentTerminal()
{
    if (d->isSilent)
        ::SetConsoleMode(d->in, d->before);
    for (HANDLE handle : {d->in, d->out}) {
        if (handle != INVALID_HANDLE_VALUE)
            ::CloseHandle(handle);
    }
}

bool SilentTerminal::isSilent() const
{
    return d->isSilent;
}

void SilentTerminal::print(const QByteArray& text) const
{
    DWORD written = 0;
    ::WriteConsoleA(d->out, text.constData(), static_cast<DWORD>(text.size()), &written, nullptr);
}

bool SilentTerminal::readByte(char& letter) const // "byte" is a type in the headers of Windows
{
    DWORD count = 0;
    return ::ReadFile(d->in, &letter, 1, &count, nullptr) != 0 && count == 1;
}
