// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "SystemTerminal.h"

#include <QChar>

#include <algorithm>
#include <iterator>

#include <io.h>
#include <windows.h>

// The cross compiler's headers lack it.
#ifndef ENABLE_VIRTUAL_TERMINAL_PROCESSING
#define ENABLE_VIRTUAL_TERMINAL_PROCESSING 0x0004
#endif

namespace {

struct Range
{
    char32_t first;
    char32_t last;
};

/// The characters of East Asian scripts and the pictures that occupy two columns.
constexpr Range wideRanges[] = {
    {0x1100, 0x115f}, {0x2e80, 0x303e},   {0x3041, 0x33ff},   {0x3400, 0x4dbf},  {0x4e00, 0x9fff},
    {0xa000, 0xa4cf}, {0xac00, 0xd7a3},   {0xf900, 0xfaff},   {0xfe30, 0xfe6f},  {0xff00, 0xff60},
    {0xffe0, 0xffe6}, {0x1f300, 0x1f64f}, {0x1f900, 0x1f9ff}, {0x20000, 0x3fffd}};

HANDLE handleOf(FILE* stream)
{
    return reinterpret_cast<HANDLE>(::_get_osfhandle(::_fileno(stream)));
}

} // namespace

bool SystemTerminal::isOpenOn(FILE* stream)
{
    DWORD mode = 0;
    HANDLE terminal = handleOf(stream);
    return ::GetConsoleMode(terminal, &mode) != 0
        && ::SetConsoleMode(terminal, mode | ENABLE_VIRTUAL_TERMINAL_PROCESSING) != 0;
}

int SystemTerminal::columns(FILE* stream)
{
    CONSOLE_SCREEN_BUFFER_INFO screen = {};
    const bool isKnown = ::GetConsoleScreenBufferInfo(handleOf(stream), &screen) != 0;
    return isKnown ? screen.srWindow.Right - screen.srWindow.Left + 1 : 0;
}

int SystemTerminal::columnsOf(char32_t character)
{
    switch (QChar::category(character)) {
    case QChar::Mark_NonSpacing:
    case QChar::Mark_Enclosing:
    case QChar::Other_Format:
        return 0;
    case QChar::Other_Control:
        return -1;
    default:
        break;
    }
    const bool isWide = std::any_of(std::begin(wideRanges), std::end(wideRanges), [=](Range range) {
        return character >= range.first && character <= range.last;
    });
    return isWide ? 2 : 1;
}
