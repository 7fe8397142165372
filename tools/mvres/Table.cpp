// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "Table.h"

#include "Columns.h"
#include "Console.h"

#include <algorithm>
#include <utility>

Table::Table(QVector<int> minWidths)
    : m_widths(std::move(minWidths))
{
}

void Table::add(const QStringList& row)
{
    m_widths.resize(std::max(m_widths.size(), row.size()));
    for (int column = 0; column < row.size(); ++column)
        m_widths[column] = std::max(m_widths.at(column), Columns::width(row.at(column)));
    m_rows.append(row);
}

QStringList Table::lines() const
{
    QStringList lines;
    for (const QStringList& row : m_rows) {
        QStringList cells = row;
        for (int column = 0; column + 1 < cells.size(); ++column)
            cells[column] = Columns::padded(cells.at(column), m_widths.at(column));
        lines.append(cells.join(QStringLiteral("  ")));
    }
    return lines;
}

void Table::print() const
{
    const QStringList all = lines();
    for (const QString& line : all)
        Console::print(line);
}
