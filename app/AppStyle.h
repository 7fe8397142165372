// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QProxyStyle>

/// The style of all widgets: the same on every platform, with all colours from the palette, and
/// with a mark of the keyboard's focus that stands out in every skin.
class AppStyle : public QProxyStyle
{
    Q_OBJECT

public:
    AppStyle();

    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override;
    void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                            QPainter* painter, const QWidget* widget) const override;
    void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* result) const override;

private:
    static void drawFocus(QPainter& painter, const QStyleOption& option);
    static void outline(QPainter& painter, const QStyleOption& option, qreal radius = 0);
    static void outlineField(QPainter& painter, const QStyleOption& option);
};
