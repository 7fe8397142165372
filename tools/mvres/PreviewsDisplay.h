// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "ProgressLine.h"

#include <QString>

struct SUpdateProgress;

/// The progress of a preview run: on a terminal a line with the numbers, which is redrawn,
/// otherwise nothing, since the totals follow. Prints to standard output.
class PreviewsDisplay
{
public:
    enum class Style { Automatic, None };

    explicit PreviewsDisplay(Style style);

    /// Shows how many of the previews are done. Does nothing before their number is known, and
    /// after finish().
    void update(const SUpdateProgress& progress);
    /// Ends the line, if there is one, so that others can follow.
    void finish();

private:
    bool m_isSilent;
    ProgressLine m_progress;
    QString m_line;
};
