// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>
#include <QtGlobal>

#include <cstdio>

/// The progress of a long command: one line, redrawn, on a terminal. A file or a pipe keeps every
/// line, so it gets one for the beginning and one for each tenth.
class ProgressLine
{
public:
    /// The output for files and pipes.
    enum class Elsewhere { Tenths, Nothing };

    /// `stream` is standard output or standard error.
    explicit ProgressLine(FILE* stream, Elsewhere elsewhere = Elsewhere::Tenths);
    Q_DISABLE_COPY_MOVE(ProgressLine)

    bool isTerminal() const { return m_isTerminal; }
    /// Returns how many columns a line may have; further ones would make it two lines.
    int room() const;

    /// Returns how much of a total is done, 0 to 100; 100 of a total of nothing.
    static int percentOf(qint64 done, qint64 total);

    /// Shows another percentage with a line in place of the last one, elided to the terminal's
    /// width. Elsewhere prints it if another tenth has begun.
    void show(int percent, const QString& line);
    /// Shows a line whatever the percentage.
    void show(const QString& line);
    /// Begins again: the next percentage is the first one.
    void restart() { m_percent = -1; }

    /// Ends the line on a terminal, if there is one, so that others can follow.
    void finish();
    /// Removes the line from a terminal.
    void clear();

private:
    FILE* m_stream;
    Elsewhere m_elsewhere;
    bool m_isTerminal;
    bool m_isDrawn = false;
    int m_percent = -1;
};
