// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "SkinLook.h"

#include <QHash>
#include <QLabel>
#include <QPainter>

#include <cmath>

namespace {

double luminance(const QColor& colour)
{
    const auto linear = [](double part) {
        return part <= 0.03928 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF())
        + 0.0722 * linear(colour.blueF());
}

QColor textColour(const QLabel& label)
{
    return label.palette().color(label.foregroundRole());
}

} // namespace

double contrast(const QColor& a, const QColor& b)
{
    const double one = luminance(a) + 0.05;
    const double other = luminance(b) + 0.05;
    return one > other ? one / other : other / one;
}

QColor mainColour(const QImage& picture)
{
    QHash<QRgb, int> count;
    QRgb most = 0;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            const QRgb pixel = picture.pixel(x, y);
            if (++count[pixel] > count.value(most))
                most = pixel;
        }
    }
    return QColor(most);
}

QImage drawnOn(QWidget& widget, const QColor& ground)
{
    const qreal scale = widget.devicePixelRatioF();
    QImage picture((QSizeF(widget.size()) * scale).toSize(), QImage::Format_RGB32);
    picture.setDevicePixelRatio(scale);
    picture.fill(ground);
    widget.render(&picture, {}, {}, QWidget::DrawChildren);
    return picture;
}

QImage seenPart(QWidget& window, const QWidget& widget)
{
    return window.grab(placeOf(&widget)).toImage();
}

QRect placeOf(const QWidget* widget)
{
    return {widget->mapTo(widget->window(), QPoint()), widget->size()};
}

double textContrast(QWidget& window, const QLabel& label)
{
    return contrast(textColour(label), mainColour(seenPart(window, label)));
}

double textContrastOnPictures(QWidget& overlay, const QLabel& label)
{
    const QRect place(label.mapTo(&overlay, label.contentsRect().topLeft()),
                      label.contentsRect().size());
    double least = 21;
    for (const QColor& ground : {QColor(Qt::white), QColor(Qt::black)}) {
        const QImage picture = drawnOn(overlay, ground);
        const qreal scale = picture.devicePixelRatioF();
        const QRect part((QPointF(place.topLeft()) * scale).toPoint(),
                         (QSizeF(place.size()) * scale).toSize());
        least = qMin(least, contrast(textColour(label), mainColour(picture.copy(part))));
    }
    return least;
}
