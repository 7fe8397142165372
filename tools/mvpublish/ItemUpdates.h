// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>
#include <QtGlobal>
#include <QVector>

class ReadTree;
struct TreeDiff;

/// What clients that use releases fetch for the items that they have when a tree replaces another
/// one: they also replace files whose content has changed under the same name.
namespace ItemUpdates {

struct Update
{
    QString item; ///< "KIND {GUID} Name"
    int fileCount = 0;
    qint64 bytes = 0;
};

/// Returns the items with new or changed files, in the order of the config catalogue. A file that
/// several items use counts for each. `after` must be the tree that was opened last.
QVector<Update> between(const ReadTree& after, const TreeDiff& diff);

} // namespace ItemUpdates
