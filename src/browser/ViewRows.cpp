// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "browser/ViewRows.h"

#include <QListView>

ViewRows ViewRows::within(const QListView& view, int pages)
{
    const int page = view.viewport()->height();
    return {firstAt(view, &QRect::bottom, -pages * page),
            firstAt(view, &QRect::top, (pages + 1) * page)};
}

/// Returns the first row with this edge at or below `y`, or the number of rows.
int ViewRows::firstAt(const QListView& view, int (QRect::*edge)() const, int y)
{
    const QAbstractItemModel& model = *view.model();
    int first = 0;
    int end = model.rowCount();
    while (first < end) {
        const int middle = first + (end - first) / 2;
        const QRect place = view.visualRect(model.index(middle, 0));
        if ((place.*edge)() < y)
            first = middle + 1;
        else
            end = middle;
    }
    return first;
}
