// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "browser/SCellState.h"
#include "ItemKey.h"

#include <QMenu>

/// The context menu of one item: what can be done with it in its present state. It deletes itself
/// when it is closed.
class ItemMenu : public QMenu
{
    Q_OBJECT

public:
    /// Decides which actions the menu offers.
    struct Facts
    {
        SCellState state;
        bool hasFavourites = false; ///< items of this kind can be favorites
        bool canBeRemoved = false;  ///< from this computer
    };

    ItemMenu(ItemKey item, const Facts& facts, QWidget* parent);

signals:
    void applyWanted(const ItemKey& item);
    void downloadWanted(const ItemKey& item);
    void cancelWanted(const ItemKey& item);
    void updateWanted(const ItemKey& item);
    void favouriteWanted(const ItemKey& item);
    void removeWanted(const ItemKey& item);
    void detailsWanted(const ItemKey& item);
    void folderWanted(const ItemKey& item);

private:
    using Signal = void (ItemMenu::*)(const ItemKey&);
    void add(const char* name, const QString& text, Signal signal);
    void addCopy(const char* name, const QString& text, const QString& copied);
    void addTransfers(SCellState::Files files);

    ItemKey m_item;
};
