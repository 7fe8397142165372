// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "PreviewsDisplay.h"

#include "Columns.h"
#include "download/SUpdateProgress.h"

#include <cstdio>

#include <unistd.h>

PreviewsDisplay::PreviewsDisplay(Style style)
    : m_isSilent(style == Style::None || ::isatty(STDOUT_FILENO) != 1)
{
}

void PreviewsDisplay::update(const SUpdateProgress& progress)
{
    if (m_isSilent || m_state == State::Finished || progress.m_nFiles == 0)
        return;
    const QString line =
        QStringLiteral("previews: %1 of %2").arg(progress.m_nFilesDone).arg(progress.m_nFiles);
    if (line == m_line)
        return; // only the bytes have changed
    m_line = line;
    m_state = State::Drawn;
    // The line must fit: "\r" does not return across a wrapped line.
    const QString fitting = Columns::elided(line, Columns::ofTerminal() - 1);
    std::printf("\r%s\033[K", fitting.toLocal8Bit().constData());
    std::fflush(stdout);
}

void PreviewsDisplay::finish()
{
    if (m_state != State::Drawn)
        return;
    m_state = State::Finished;
    std::printf("\n");
}
