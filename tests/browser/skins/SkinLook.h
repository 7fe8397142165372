#pragma once

#include <QColor>
#include <QImage>
#include <QRect>

class QLabel;
class QWidget;

/// What can be seen of widgets.

/// Contrast of two opaque colours as the accessibility guidelines count it, from 1 to 21.
double contrast(const QColor& a, const QColor& b);
/// The smallest contrast at which a text counts as legible.
constexpr double legible = 4.5;

/// The colour that most of the picture has.
QColor mainColour(const QImage& picture);
/// The widget and its children on a ground that shines through where they are translucent.
QImage drawnOn(QWidget& widget, const QColor& ground);
/// The part of a window that a widget takes, in device pixels.
QImage seenPart(QWidget& window, const QWidget& widget);

/// Where the widget is in its window.
QRect placeOf(const QWidget* widget);
/// Contrast of the label's text with what the label stands on in its window.
double textContrast(QWidget& window, const QLabel& label);
/// The smallest contrast that the label's text can have, whatever picture lies under `overlay`.
double textContrastOnPictures(QWidget& overlay, const QLabel& label);
