// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "ItemKey.h"
#include "NoticeBar.h"

class QTimer;

/// Tells for a while that an item is no longer a favorite, and offers to make it one again.
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
