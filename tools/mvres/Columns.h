#pragma once

#include <QString>

/// Texts in the columns of a terminal, where some characters take two and some none.
namespace Columns {

/// Returns how many columns the text takes.
int width(const QString& text);
/// The text with blanks behind it, up to that width.
QString padded(const QString& text, int width);
/// The text, its middle replaced by "..." if it is wider.
QString elided(const QString& text, int width);
/// The width of the terminal on standard output; 80 if it does not tell.
int ofTerminal();

} // namespace Columns
