// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "ProgressLine.h"

#include <QString>
#include <QtGlobal>

/// The progress of one download: a bar on a terminal, otherwise a line for each file that begins,
/// or for each tenth of the bytes. Prints to standard output.
class ProgressDisplay
{
public:
    enum class Style { Automatic, None };

    ProgressDisplay(const QString& title, Style style);

    /// Shows a percentage, 0 to 100.
    void update(double percent);
    /// Shows how many bytes of a total, which may grow, are done. The percentage never decreases.
    void updateBytes(qint64 bytes, qint64 total);
    /// Shows that a file, given by its local path, is being fetched now; others may be, too.
    void begin(const QString& file);
    /// Ends the bar's line.
    void finish();

private:
    QString fileName() const;
    QString text() const;
    QString barText() const;

    QString m_title;
    bool m_silent;
    ProgressLine m_line;
    int m_percent = -1;
    QString m_file;
};
