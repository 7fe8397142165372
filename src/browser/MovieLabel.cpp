// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "browser/MovieLabel.h"

#include <QMovie>
#include <QPainter>

MovieLabel::MovieLabel(QWidget* parent)
    : QLabel(parent)
{
}

void MovieLabel::paintEvent(QPaintEvent* event)
{
    const QPixmap frame = movie() ? movie()->currentPixmap() : QPixmap();
    const QRect area = contentsRect();
    const QSize size = frame.size().scaled(area.size(), Qt::KeepAspectRatio);
    if (frame.isNull() || size.width() >= frame.width()) {
        QLabel::paintEvent(event);
        return;
    }
    QPainter painter(this);
    drawFrame(&painter);
    QRect target({}, size);
    target.moveCenter(area.center());
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawPixmap(target, frame);
}
