// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>
#include <QtGlobal>

/// The progress of a long command: a line on standard error that is drawn anew, if that is a
/// terminal; nothing otherwise.
class ProgressLine
{
public:
    /// `total` is the amount of work, in any unit.
    ProgressLine(const QString& title, qint64 total);
    /// Clears the line.
    ~ProgressLine();
    Q_DISABLE_COPY_MOVE(ProgressLine)

    void update(qint64 done);

private:
    QString m_title;
    qint64 m_total;
    bool m_isTerminal;
    int m_percent = -1;
};
