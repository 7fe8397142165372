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
    void noteFavourite(const ItemKey& item);
    /// Forgets the last change of the favorites that concerned the item, which another control has
    /// taken back.
    void forgetFavourite(const ItemKey& item);
    void retranslate();

signals:
    /// The item's favourite mark should change back.
    void favouriteWanted(const ItemKey& item);

private:
    void undo();

    ItemRemovals& m_removals;
    QVector<ItemKey> m_changes; // the last one at the end; an empty key is a removal
};
