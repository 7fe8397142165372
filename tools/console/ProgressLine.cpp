// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "ProgressLine.h"

#include "Columns.h"
#include "Console.h"
#include "SystemTerminal.h"

#include <algorithm>

ProgressLine::ProgressLine(FILE* stream, Elsewhere elsewhere)
    : m_stream(stream)
    , m_elsewhere(elsewhere)
    , m_isTerminal(SystemTerminal::isOpenOn(stream))
{
}

int ProgressLine::room() const
{
    return Columns::ofTerminal(m_stream) - 1;
}

int ProgressLine::percentOf(qint64 done, qint64 total)
{
    constexpr double whole = 100.0;
    if (total <= 0)
        return static_cast<int>(whole);
    return static_cast<int>(whole * static_cast<double>(std::clamp(done, qint64{0}, total))
                            / static_cast<double>(total));
}

void ProgressLine::show(int percent, const QString& line)
{
    constexpr int tenth = 10;
    if (percent == m_percent)
        return;
    const bool isNewTenth = m_percent < 0 || percent / tenth != m_percent / tenth;
    m_percent = percent;
    if (m_isTerminal || isNewTenth)
        show(line);
}

void ProgressLine::show(const QString& line)
{
    if (!m_isTerminal && m_elsewhere == Elsewhere::Nothing)
        return;
    const QString text = Console::oneLine(line);
    if (m_isTerminal) {
        // The line must fit: "\r" does not return across a wrapped line. The rest of an earlier,
        // longer one is cleared.
        std::fprintf(m_stream, "\r%s\033[K",
                     Columns::elided(text, room()).toLocal8Bit().constData());
        m_isDrawn = true;
    } else {
        std::fprintf(m_stream, "%s\n", text.toLocal8Bit().constData());
    }
    std::fflush(m_stream);
}

void ProgressLine::finish()
{
    if (m_isDrawn)
        std::fputs("\n", m_stream);
    m_isDrawn = false;
}

void ProgressLine::clear()
{
    if (m_isDrawn)
        std::fputs("\r\033[K", m_stream);
    std::fflush(m_stream);
    m_isDrawn = false;
}
