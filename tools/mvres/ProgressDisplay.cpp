// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "ProgressDisplay.h"

#include "Columns.h"
#include "Console.h"

#include <QFileInfo>

#include <algorithm>
#include <cstdio>

#include <unistd.h>

namespace {

constexpr int widestBar = 40;
constexpr int narrowestBar = 10;
// Brackets, blanks, and a percentage of three digits.
constexpr int widthAroundBar = 2 + 3 + 4;

} // namespace

ProgressDisplay::ProgressDisplay(const QString& title, Style style)
    : m_title(Console::oneLine(title))
    , m_silent(style == Style::None)
    , m_bar(::isatty(STDOUT_FILENO) == 1)
{
}

void ProgressDisplay::update(double percent)
{
    const int whole = std::clamp(static_cast<int>(percent), 0, 100);
    const bool isFirst = m_percent < 0;
    if (m_silent || whole == m_percent)
        return;
    m_percent = whole;
    if (m_bar)
        drawBar();
    else if (isFirst)
        printLine();
}

void ProgressDisplay::updateBytes(qint64 bytes, qint64 total)
{
    constexpr int tenth = 10;
    const int before = m_percent;
    const int whole = total > 0 ? static_cast<int>(bytes * 100 / total) : 0;
    m_percent = std::clamp(whole, std::max(m_percent, 0), 100);
    m_file = QStringLiteral("%1 of %2").arg(Console::size(bytes), Console::size(total));
    if (m_silent || m_percent == before)
        return;
    if (m_bar)
        drawBar();
    else if (before < 0 || m_percent / tenth != before / tenth)
        printLine();
}

void ProgressDisplay::begin(const QString& file)
{
    m_file = file;
    if (m_silent)
        return;
    if (m_bar)
        drawBar();
    else
        printLine();
}

void ProgressDisplay::printLine() const
{
    Console::print(
        QStringLiteral("%1: %2%  %3")
            .arg(m_title, QString::number(std::max(m_percent, 0)).rightJustified(3), fileName()));
}

QString ProgressDisplay::fileName() const
{
    return m_file.isEmpty() ? QStringLiteral("preparing")
                            : Console::oneLine(QFileInfo(m_file).fileName());
}

/// The line must fit: "\r" does not return across a wrapped line.
void ProgressDisplay::drawBar() const
{
    const int percent = std::max(m_percent, 0);
    const int room = Columns::ofTerminal() - 1;
    const int barWidth = std::clamp(room / 3, narrowestBar, widestBar);
    const int filled = percent * barWidth / 100;
    const QString bar =
        QString(filled, QLatin1Char('#')) + QString(barWidth - filled, QLatin1Char(' '));
    const QString file = fileName();
    const int texts = std::max(room - barWidth - widthAroundBar, 0);
    const QString title =
        Columns::elided(m_title, std::max(texts / 2, texts - Columns::width(file)));
    const QString line = QStringLiteral("%1 [%2] %3% %4")
                             .arg(title, bar, QString::number(percent).rightJustified(3),
                                  Columns::elided(file, texts - Columns::width(title)));
    // Returns to the line's start and clears the rest of an earlier, longer file name.
    std::printf("\r%s\033[K", line.toLocal8Bit().constData());
    std::fflush(stdout);
}

void ProgressDisplay::finish()
{
    if (!m_silent && m_bar && m_percent >= 0)
        std::printf("\n");
}
