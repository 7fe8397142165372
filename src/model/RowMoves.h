// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QVector>

/// Finds the fewest rows that have to move to bring a list into another order. Internal to the
/// library.
class RowMoves
{
public:
    RowMoves() = delete;

    /// `places` has the present place of each row, in the wanted order. Returns for each whether it
    /// can stay: those form a longest increasing subsequence.
    static QVector<bool> staying(const QVector<int>& places);
};
