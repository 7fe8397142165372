// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QColor>
#include <QFont>
#include <QImage>

class QPainter;

/// The progress ring of a download: a sector of one picture over another, and the percentage as
/// text, or a cross where a click cancels.
struct ProgressRing
{
    QImage image;         ///< uncovered by the sector
    QImage mask;          ///< always visible, below
    QColor color;         ///< of the text
    QFont font;           ///< of the text
    bool isCross = false; ///< a cross replaces the text

    /// Paints the ring over `rect`, sharp at every screen scale. The sector shows `value` percent,
    /// clamped to 0 to 100, clockwise from twelve o'clock; the text shows `value` unclamped.
    void paint(QPainter* p, const QRect& rect, int value) const;

private:
    static void paintImage(QPainter* p, const QRect& rect, const QImage& image);
    void paintCross(QPainter* p, const QRect& rect) const;
    void paintSector(QPainter* p, const QRect& rect, int percent) const;
};
