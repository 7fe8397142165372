// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "NoticeBar.h"

class ItemRemovals;

/// Offers to bring back the item that was removed last, until the program ends.
class UndoBar : public NoticeBar
{
    Q_OBJECT

public:
    /// `removals` must outlive the bar.
    UndoBar(ItemRemovals& removals, QWidget* parent);

protected:
    void retranslate() override;
    void act() override;

private:
    void refresh();

    ItemRemovals& m_removals;
};
