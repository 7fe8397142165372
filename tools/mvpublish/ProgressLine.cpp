// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "ProgressLine.h"

#include <algorithm>
#include <cstdio>

#include <unistd.h>

ProgressLine::ProgressLine(const QString& title, qint64 total)
    : m_title(title)
    , m_total(std::max<qint64>(total, 1))
    , m_isTerminal(::isatty(STDERR_FILENO) == 1)
{
    update(0);
}

ProgressLine::~ProgressLine()
{
    if (m_isTerminal)
        std::fputs("\r\033[K", stderr);
}

void ProgressLine::update(qint64 done)
{
    constexpr qint64 whole = 100;
    const int percent = static_cast<int>(std::clamp(done, qint64(0), m_total)
                                         / (static_cast<double>(m_total) / whole));
    if (!m_isTerminal || percent == m_percent)
        return;
    m_percent = percent;
    std::fprintf(stderr, "\r%s: %d%%\033[K", m_title.toLocal8Bit().constData(), percent);
    std::fflush(stderr);
}
