// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

#include <cstdio>

/// Lays out texts in terminal columns, where some characters occupy two and some none.
namespace Columns {

/// Returns how many columns the text occupies.
int width(const QString& text);
/// Returns the text padded with blanks to that width.
QString padded(const QString& text, int width);
/// Returns the text, with its middle replaced by "..." if it is wider.
QString elided(const QString& text, int width);
/// Returns the width of the terminal on which the stream is open; 80 if unknown.
int ofTerminal(FILE* stream);

} // namespace Columns
