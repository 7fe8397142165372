// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdio>

/// The terminal of the process, which every system has in its own way.
namespace SystemTerminal {

/// Returns whether the stream is open on a terminal that obeys escape sequences.
bool isOpenOn(FILE* stream);
/// Returns the width of the terminal on which the stream is open; 0 if unknown.
int columns(FILE* stream);
/// Returns how many columns a character occupies: 0, 1 or 2, or -1 if it cannot be displayed.
int columnsOf(char32_t character);

} // namespace SystemTerminal
