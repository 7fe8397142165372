// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "ItemKey.h"
#include "NoticeBar.h"

class QTimer;

/// Announces for a few seconds that an item was removed from the favorites, with an undo button.
class FavouriteBar : public NoticeBar
{
    Q_OBJECT

public:
    explicit FavouriteBar(QWidget* parent);

    void showRemoval(const ItemKey& item);

signals:
    void undoWanted(const ItemKey& item);

protected:
    void retranslate() override;
    void act() override;

private:
    ItemKey m_item;
    QTimer* m_while;
};
