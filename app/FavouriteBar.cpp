// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "FavouriteBar.h"

#include <QTimer>

FavouriteBar::FavouriteBar(QWidget* parent)
    : NoticeBar(QStringLiteral("favouriteBar"), parent)
    , m_while(new QTimer(this))
{
    constexpr int shownMs = 15000;
    m_while->setSingleShot(true);
    m_while->setInterval(shownMs);
    connect(m_while, &QTimer::timeout, this, &QWidget::hide);
}

void FavouriteBar::showRemoval(const ItemKey& item)
{
    m_item = item;
    retranslate();
    show();
    m_while->start();
}

void FavouriteBar::retranslate()
{
    setTexts(tr("“%1” was removed from the favorites").arg(m_item.name()), tr("Undo"));
}

void FavouriteBar::act()
{
    hide();
    emit undoWanted(m_item);
}
