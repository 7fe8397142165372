// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "PreviewsDisplay.h"

#include "download/SUpdateProgress.h"

#include <cstdio>

PreviewsDisplay::PreviewsDisplay(Style style)
    : m_isSilent(style == Style::None)
    , m_progress(stdout, ProgressLine::Elsewhere::Nothing)
{
}

void PreviewsDisplay::update(const SUpdateProgress& progress)
{
    if (m_isSilent || progress.m_nFiles == 0)
        return;
    const QString line =
        QStringLiteral("previews: %1 of %2").arg(progress.m_nFilesDone).arg(progress.m_nFiles);
    if (line == m_line)
        return; // only the bytes have changed
    m_line = line;
    m_progress.show(line);
}

void PreviewsDisplay::finish()
{
    if (m_line.isEmpty())
        return; // what is to come first is not the end
    m_progress.finish();
    m_isSilent = true;
}
