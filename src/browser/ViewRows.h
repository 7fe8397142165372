// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QRect>

class QListView;

/// A range of rows of a list view, by their place on the screen. Internal to the library; a value
/// type.
struct ViewRows
{
    int first = 0;
    int end = 0; ///< after the last

    bool contains(int row) const { return row >= first && row < end; }

    /// Returns the rows that intersect the viewport and `pages` pages on either side. The rows must
    /// be laid out from top to bottom: the vertical position never decreases from row to row.
    static ViewRows within(const QListView& view, int pages);

private:
    static int firstAt(const QListView& view, int (QRect::*edge)() const, int y);
};
