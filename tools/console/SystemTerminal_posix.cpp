// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "SystemTerminal.h"

#include <cwchar>

#include <sys/ioctl.h>
#include <unistd.h>

bool SystemTerminal::isOpenOn(FILE* stream)
{
    return ::isatty(::fileno(stream)) == 1;
}

int SystemTerminal::columns(FILE* stream)
{
    winsize size = {};
    return ::ioctl(::fileno(stream), TIOCGWINSZ, &size) == 0 ? size.ws_col : 0;
}

int SystemTerminal::columnsOf(char32_t character)
{
    return ::wcwidth(static_cast<wchar_t>(character));
}
