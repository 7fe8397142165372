// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "model/RowMoves.h"

#include <algorithm>

QVector<bool> RowMoves::staying(const QVector<int>& places)
{
    const int count = static_cast<int>(places.size());
    QVector<int> ends; // ends[n]: the row that ends the best subsequence of n + 1 rows
    QVector<int> before(places.size(), -1);
    for (int row = 0; row < count; ++row) {
        const auto end =
            std::lower_bound(ends.begin(), ends.end(), places.at(row),
                             [&places](int other, int place) { return places.at(other) < place; });
        if (end != ends.begin())
            before[row] = *(end - 1);
        if (end == ends.end())
            ends.append(row);
        else
            *end = row;
    }
    QVector<bool> stays(places.size(), false);
    for (int row = ends.isEmpty() ? -1 : ends.constLast(); row >= 0; row = before.at(row))
        stays[row] = true;
    return stays;
}
