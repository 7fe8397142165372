// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "MessageBar.h"

#include <QPainter>
#include <QStyle>
#include <QStyleOption>

QString MessageBar::shownMessage() const
{
    return fontMetrics().elidedText(currentMessage(), Qt::ElideRight, messageRoom().width());
}

/// A message hides all widgets except the permanent ones, which are at the end.
QRect MessageBar::messageRoom() const
{
    constexpr int margin = 6; // as in Qt
    int end = width();
    const QList<QWidget*> parts = findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly);
    for (const QWidget* part : parts) {
        if (part->isVisible())
            end = qMin(end, part->x());
    }
    const QRect room(margin, 0, end - 2 * margin, height());
    return QStyle::visualRect(layoutDirection(), rect(), room);
}

void MessageBar::paintEvent(QPaintEvent* event)
{
    if (currentMessage().isEmpty()) {
        QStatusBar::paintEvent(event);
        return;
    }
    QPainter painter(this);
    QStyleOption option;
    option.initFrom(this);
    style()->drawPrimitive(QStyle::PE_PanelStatusBar, &option, &painter, this);
    painter.setPen(palette().windowText().color());
    painter.drawText(messageRoom(), Qt::AlignLeading | Qt::AlignVCenter | Qt::TextSingleLine,
                     shownMessage());
}
