// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QStringList>
#include <QVector>

/// Aligns rows of texts in columns for a terminal.
class Table
{
public:
    /// Columns have at least these widths, and those without one the width of their texts.
    explicit Table(QVector<int> minWidths = {});

    void add(const QStringList& row);
    /// Returns a line for each row; the last column is not padded.
    QStringList lines() const;
    /// Prints the lines on standard output.
    void print() const;

private:
    QVector<int> m_widths;
    QVector<QStringList> m_rows;
};
