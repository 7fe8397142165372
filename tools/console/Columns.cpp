// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "Columns.h"

#include "SystemTerminal.h"

#include <algorithm>
#include <string>

namespace {

int widthOf(char32_t character)
{
    const int width = SystemTerminal::columnsOf(character);
    return width < 0 ? 1 : width; // printed as "?"
}

/// Returns as many leading characters as fit.
std::u32string fitting(const std::u32string& characters, int width)
{
    std::size_t count = 0;
    int used = 0;
    while (count < characters.size() && used + widthOf(characters[count]) <= width)
        used += widthOf(characters[count++]);
    return characters.substr(0, count);
}

} // namespace

namespace Columns {

int width(const QString& text)
{
    int sum = 0;
    const std::u32string characters = text.toStdU32String();
    for (const char32_t character : characters)
        sum += widthOf(character);
    return sum;
}

QString padded(const QString& text, int width)
{
    return text + QString(std::max(0, width - Columns::width(text)), QLatin1Char(' '));
}

QString elided(const QString& text, int width)
{
    if (Columns::width(text) <= width)
        return text;
    const QString dots = QStringLiteral("...");
    const int room = width - dots.size();
    const std::u32string characters = text.toStdU32String();
    if (room < 2)
        return QString::fromStdU32String(fitting(characters, std::max(width, 0)));
    const std::u32string front = fitting(characters, room - room / 2);
    std::u32string back = fitting({characters.rbegin(), characters.rend()}, room / 2);
    std::reverse(back.begin(), back.end());
    return QString::fromStdU32String(front) + dots + QString::fromStdU32String(back);
}

int ofTerminal(FILE* stream)
{
    constexpr int usual = 80;
    const int known = SystemTerminal::columns(stream);
    return known > 0 ? known : usual;
}

} // namespace Columns
