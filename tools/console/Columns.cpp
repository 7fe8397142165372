// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "Columns.h"

#include <QVector>

#include <algorithm>
#include <cwchar>

#include <sys/ioctl.h>
#include <unistd.h>

namespace {

constexpr int usualWidth = 80;

int widthOf(uint character)
{
    const int width = ::wcwidth(static_cast<wchar_t>(character));
    return width < 0 ? 1 : width; // printed as "?"
}

/// Returns as many leading characters as fit.
QString fitting(const QVector<uint>& characters, int width)
{
    int count = 0;
    int used = 0;
    while (count < characters.size() && used + widthOf(characters.at(count)) <= width)
        used += widthOf(characters.at(count++));
    return QString::fromUcs4(characters.constData(), count);
}

} // namespace

namespace Columns {

int width(const QString& text)
{
    int sum = 0;
    const QVector<uint> characters = text.toUcs4();
    for (const uint character : characters)
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
    if (room < 2)
        return fitting(text.toUcs4(), std::max(width, 0));
    QVector<uint> backwards = text.toUcs4();
    const QString front = fitting(backwards, room - room / 2);
    std::reverse(backwards.begin(), backwards.end());
    QVector<uint> back = fitting(backwards, room / 2).toUcs4();
    std::reverse(back.begin(), back.end());
    return front + dots + QString::fromUcs4(back.constData(), back.size());
}

int ofTerminal(int descriptor)
{
    winsize size = {};
    const bool known = ::ioctl(descriptor, TIOCGWINSZ, &size) == 0 && size.ws_col > 0;
    return known ? size.ws_col : usualWidth;
}

} // namespace Columns
