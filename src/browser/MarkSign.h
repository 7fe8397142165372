// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QColor>
#include <QRectF>

class QPainter;

/// The signs of the marks on cells, as vectors that are sharp at every scale. Internal to the
/// library; GUI thread only.
class MarkSign
{
public:
    enum Sign { Tick, Arrow, Circle, Exclamation, Star };

    MarkSign() = delete;

    /// Paints a disc and the sign on it, which fill `place`.
    static void paint(QPainter& painter, const QRectF& place, Sign sign, const QColor& plate,
                      const QColor& color);
};
