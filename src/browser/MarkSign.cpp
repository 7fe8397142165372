// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "browser/MarkSign.h"

#include <QPainter>
#include <QPainterPath>

namespace {

constexpr qreal unit = 16; // the signs are drawn on a square of this size
constexpr qreal strokeWidth = 1.7;
constexpr int rimAlpha = 70; // keeps a disc apart from a picture of its colour

QPainterPath lines(std::initializer_list<QPolygonF> all)
{
    QPainterPath path;
    for (const QPolygonF& line : all)
        path.addPolygon(line);
    return path;
}

QPolygonF line(std::initializer_list<QPointF> points)
{
    return QPolygonF(QVector<QPointF>(points));
}

QPainterPath tick()
{
    return lines({line({{4.7, 8.3}, {7, 10.6}, {11.3, 5.7}})});
}

/// A download that is possible: an arrow to a base line.
QPainterPath arrow()
{
    return lines({line({{8, 3.8}, {8, 9.4}}), line({{5.4, 7.1}, {8, 9.7}, {10.6, 7.1}}),
                  line({{5.2, 12}, {10.8, 12}})});
}

/// An open circle with an arrowhead: fetch it again.
QPainterPath circle()
{
    QPainterPath path = lines({line({{9.5, 3.2}, {11.3, 5.1}, {8.9, 6.5}})});
    const QRectF round(4.4, 4.9, 7.2, 7.2);
    constexpr qreal start = 62; // degrees; the gap is at the arrowhead
    constexpr qreal span = 300;
    path.arcMoveTo(round, start);
    path.arcTo(round, start, span);
    return path;
}

QPainterPath exclamation()
{
    return lines({line({{8, 4.2}, {8, 8.8}}), line({{8, 11.7}, {8, 11.75}})});
}

QPainterPath star()
{
    return lines({line({{8, 2.8},
                        {9.4, 6.6},
                        {13.2, 8},
                        {9.4, 9.4},
                        {8, 13.2},
                        {6.6, 9.4},
                        {2.8, 8},
                        {6.6, 6.6},
                        {8, 2.8}})});
}

QPainterPath pathOf(MarkSign::Sign sign)
{
    switch (sign) {
    case MarkSign::Tick:
        return tick();
    case MarkSign::Arrow:
        return arrow();
    case MarkSign::Circle:
        return circle();
    case MarkSign::Exclamation:
        return exclamation();
    case MarkSign::Star:
        return star();
    }
    return {};
}

} // namespace

void MarkSign::paint(QPainter& painter, const QRectF& place, Sign sign, const QColor& plate,
                     const QColor& color)
{
    QColor rim = color;
    rim.setAlpha(rimAlpha);
    constexpr qreal inset = 0.5;
    const bool isFilled = sign == Star;
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(place.topLeft());
    painter.scale(place.width() / unit, place.height() / unit);
    painter.setPen(QPen(rim, 1));
    painter.setBrush(plate);
    painter.drawEllipse(QRectF(0, 0, unit, unit).adjusted(inset, inset, -inset, -inset));
    painter.setPen(isFilled ? QPen(Qt::NoPen)
                            : QPen(color, strokeWidth, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.setBrush(isFilled ? QBrush(color) : QBrush(Qt::NoBrush));
    painter.drawPath(pathOf(sign));
    painter.restore();
}
