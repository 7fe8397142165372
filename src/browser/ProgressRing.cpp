// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "browser/ProgressRing.h"

#include <QBitmap>
#include <QPainter>
#include <QPixmap>

namespace {

constexpr int fullCircle = 360 * 16; // Qt counts angles in sixteenths of a degree
constexpr int twelveOClock = 90 * 16;
constexpr int firstQuarter = 25; // per cent

qreal screenScale(const QPainter* p)
{
    return p->device()->devicePixelRatioF();
}

QSize devicePixels(const QRect& rect, qreal scale)
{
    return (QSizeF(rect.size()) * scale).toSize();
}

} // namespace

void ProgressRing::paint(QPainter* p, const QRect& rect, int value) const
{
    paintImage(p, rect, mask);
    const int percent = qMin(value, 100);
    if (percent >= 1)
        paintSector(p, rect, percent);
    if (isCross) {
        paintCross(p, rect);
        return;
    }
    p->save();
    p->setPen(color);
    p->setFont(font);
    p->drawText(rect, Qt::AlignCenter, QString::number(value) + QLatin1Char('%'));
    p->restore();
}

void ProgressRing::paintCross(QPainter* p, const QRect& rect) const
{
    constexpr qreal armShare = 0.14; // of the ring's width, from the centre
    constexpr qreal lineShare = 0.045;
    const qreal width = qMin(rect.width(), rect.height());
    const qreal arm = width * armShare;
    const QPointF centre = QRectF(rect).center();
    p->save();
    p->setRenderHint(QPainter::Antialiasing);
    p->setPen(QPen(color, width * lineShare, Qt::SolidLine, Qt::RoundCap));
    p->drawLine(centre - QPointF(arm, arm), centre + QPointF(arm, arm));
    p->drawLine(centre - QPointF(arm, -arm), centre + QPointF(arm, -arm));
    p->restore();
}

void ProgressRing::paintImage(QPainter* p, const QRect& rect, const QImage& image)
{
    const QSize pixels = devicePixels(rect, screenScale(p));
    if (image.isNull() || pixels.isEmpty())
        return;
    p->drawImage(rect, image.scaled(pixels, Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
}

void ProgressRing::paintSector(QPainter* p, const QRect& rect, int percent) const
{
    const qreal scale = screenScale(p);
    const QSize pixels = devicePixels(rect, scale);
    if (pixels.isEmpty())
        return;
    const int span = percent * (fullCircle / 10) / 10;
    const int start = (percent <= firstQuarter ? twelveOClock : fullCircle + twelveOClock) - span;

    QPixmap sector(pixels);
    sector.fill(Qt::white);
    {
        QPainter pie(&sector);
        pie.setRenderHint(QPainter::SmoothPixmapTransform);
        pie.setPen(Qt::red);
        pie.setBrush(Qt::red);
        pie.drawPie(0, 0, pixels.width(), pixels.height(), start, span);
    }
    const QRegion clip(sector.createMaskFromColor(Qt::red, Qt::MaskOutColor));

    // The region is in device pixels, so the painter must be, too.
    p->save();
    p->translate(rect.topLeft());
    p->scale(1 / scale, 1 / scale);
    p->setClipRegion(clip);
    if (!image.isNull())
        p->drawImage(0, 0, image.scaled(pixels, Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
    p->restore();
}
