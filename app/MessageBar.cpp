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
    constexpr int margin = 6;                         // as in Qt
    const auto inOrder = [this](const QRect& place) { // as if the layout went from left to right
        return QStyle::visualRect(layoutDirection(), rect(), place);
    };
    int end = width();
    const QList<QWidget*> parts = findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly);
    for (const QWidget* part : parts) {
        if (part->isVisible())
            end = qMin(end, inOrder(part->geometry()).left());
    }
    return inOrder(QRect(margin, 0, end - 2 * margin, height()));
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
