// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QColor>
#include <QImage>
#include <QRect>

class QLabel;
class QWidget;

/// Measures widgets as they appear on screen.

/// Returns the contrast of two opaque colours by the WCAG formula, from 1 to 21.
double contrast(const QColor& a, const QColor& b);
/// The smallest contrast at which a text counts as legible.
constexpr double legible = 4.5;

/// Returns the most frequent colour of the picture.
QColor mainColour(const QImage& picture);
/// Renders the widget and its children on a ground visible wherever they are translucent.
QImage drawnOn(QWidget& widget, const QColor& ground);
/// Returns the part of a window that a widget occupies, in device pixels.
QImage seenPart(QWidget& window, const QWidget& widget);

/// Returns the widget's rectangle in its window.
QRect placeOf(const QWidget* widget);
/// Returns the contrast between the label's text and its background in the window.
double textContrast(QWidget& window, const QLabel& label);
/// Returns the lowest possible contrast of the label's text over any picture below `overlay`.
double textContrastOnPictures(QWidget& overlay, const QLabel& label);
