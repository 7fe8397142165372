// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "ProgressDisplay.h"

#include "Columns.h"
#include "Console.h"

#include <QFileInfo>

#include <algorithm>
#include <cstdio>

namespace {

constexpr int widestBar = 40;
constexpr int narrowestBar = 10;
// Brackets, blanks, and a percentage of three digits.
constexpr int widthAroundBar = 2 + 3 + 4;

} // namespace

ProgressDisplay::ProgressDisplay(const QString& title, Style style)
    : m_title(Console::oneLine(title))
    , m_silent(style == Style::None)
    , m_line(stdout)
{
}

void ProgressDisplay::update(double percent)
{
    const int whole = std::clamp(static_cast<int>(percent), 0, 100);
    const bool isFirst = m_percent < 0;
    if (m_silent || whole == m_percent)
        return;
    m_percent = whole;
    if (m_line.isTerminal() || isFirst)
        m_line.show(text());
}

void ProgressDisplay::updateBytes(qint64 bytes, qint64 total)
{
    const int whole = total > 0 ? ProgressLine::percentOf(bytes, total) : 0;
    m_percent = std::max(whole, m_percent);
    m_file = QStringLiteral("%1 of %2").arg(Console::size(bytes), Console::size(total));
    if (!m_silent)
        m_line.show(m_percent, text());
}

void ProgressDisplay::begin(const QString& file)
{
    m_file = file;
    if (!m_silent)
        m_line.show(text());
}

void ProgressDisplay::finish()
{
    m_line.finish();
}

QString ProgressDisplay::fileName() const
{
    return m_file.isEmpty() ? QStringLiteral("preparing")
                            : Console::oneLine(QFileInfo(m_file).fileName());
}

QString ProgressDisplay::text() const
{
    if (m_line.isTerminal())
        return barText();
    return QStringLiteral("%1: %2%  %3")
        .arg(m_title, QString::number(std::max(m_percent, 0)).rightJustified(3), fileName());
}

/// Returns a bar that leaves room for both names.
QString ProgressDisplay::barText() const
{
    const int percent = std::max(m_percent, 0);
    const int room = m_line.room();
    const int barWidth = std::clamp(room / 3, narrowestBar, widestBar);
    const int filled = percent * barWidth / 100;
    const QString bar =
        QString(filled, QLatin1Char('#')) + QString(barWidth - filled, QLatin1Char(' '));
    const QString file = fileName();
    const int texts = std::max(room - barWidth - widthAroundBar, 0);
    const QString title =
        Columns::elided(m_title, std::max(texts / 2, texts - Columns::width(file)));
    return QStringLiteral("%1 [%2] %3% %4")
        .arg(title, bar, QString::number(percent).rightJustified(3),
             Columns::elided(file, texts - Columns::width(title)));
}
