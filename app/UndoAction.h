// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "ItemKey.h"

#include <QAction>
#include <QVector>

class ItemRemovals;

/// The menu entry that takes back the user's last change, then those before it: a change of the
/// favorites, or the removal of an item from this computer.
class UndoAction : public QAction
{
    Q_OBJECT

public:
    /// `removals` must outlive this object.
    UndoAction(ItemRemovals& removals, QObject* parent);

    /// Records that the user has added an item to the favorites or removed it.
    void noteFavourite(const ItemKey& item, bool wasFavourite);
    /// Forgets the last change of the favorites that concerned the item, which another control has
    /// taken back.
    void forgetFavourite(const ItemKey& item);
    void retranslate();

signals:
    /// The item should be a favorite again, or not.
    void favouriteWanted(const ItemKey& item, bool isFavourite);

private:
    struct Change
    {
        ItemKey item; // empty: a removal
        bool wasFavourite = false;
    };

    void undo();
    void noteRemovals();
    void forgetLast(const ItemKey& item);

    ItemRemovals& m_removals;
    QVector<Change> m_changes; // the last one at the end
};
