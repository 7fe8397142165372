// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "AppStyle.h"

#include <QPainter>
#include <QStyleFactory>
#include <QStyleOption>

AppStyle::AppStyle()
    : QProxyStyle(QStyleFactory::create(QStringLiteral("Fusion")))
{
}

/// Marks the keyboard's focus, unless the user works with the mouse.
void AppStyle::drawFocus(QPainter& painter, const QStyleOption& option)
{
    if (!option.state.testFlag(State_KeyboardFocusChange))
        return;
    constexpr qreal lineWidth = 2;
    constexpr qreal radius = 3;
    constexpr qreal inset = lineWidth / 2;
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(option.palette.highlight().color(), lineWidth));
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(QRectF(option.rect).adjusted(inset, inset, -inset, -inset), radius,
                            radius);
    painter.restore();
}

/// Buttons and fields mark their focus by an outline of their own.
void AppStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option,
                             QPainter* painter, const QWidget* widget) const
{
    if (element == PE_FrameFocusRect) {
        drawFocus(*painter, *option);
        return;
    }
    QProxyStyle::drawPrimitive(element, option, painter, widget);
    if (element == PE_IndicatorCheckBox)
        outline(*painter, *option);
    else if (element == PE_FrameLineEdit)
        outlineField(*painter, *option);
}

/// Draws an outline that stands out in dark skins, too, where the style's own is darker still.
void AppStyle::outline(QPainter& painter, const QStyleOption& option, qreal radius)
{
    constexpr qreal half = 0.5; // of the line
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing, radius > 0);
    painter.setPen(option.palette.placeholderText().color());
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(QRectF(option.rect).adjusted(half, half, -half, -half), radius, radius);
    painter.restore();
}

/// Outlines a field in dark skins, unless it has the focus and with it another outline.
void AppStyle::outlineField(QPainter& painter, const QStyleOption& option)
{
    constexpr qreal radius = 2; // the style's
    constexpr int darkest = 128;
    const bool isDark = option.palette.window().color().lightness() < darkest;
    if (isDark && !option.state.testFlag(State_HasFocus))
        outline(painter, option, radius);
}

/// A box with a number draws its frame itself.
void AppStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                                  QPainter* painter, const QWidget* widget) const
{
    QProxyStyle::drawComplexControl(control, option, painter, widget);
    if (control == CC_SpinBox)
        outlineField(*painter, *option);
}

/// The icons of a desktop's theme match no skin.
int AppStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                        QStyleHintReturn* result) const
{
    return hint == SH_DialogButtonBox_ButtonsHaveIcons
        ? 0
        : QProxyStyle::styleHint(hint, option, widget, result);
}

/// The label of a tab does not ask a proxy for its mark.
void AppStyle::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                           const QWidget* widget) const
{
    QProxyStyle::drawControl(element, option, painter, widget);
    if (element != CE_TabBarTabLabel || !option->state.testFlag(State_HasFocus))
        return;
    constexpr int inset = 3;
    QStyleOption inner(*option);
    inner.rect.adjust(inset, inset, -inset, -inset);
    drawFocus(*painter, inner);
}
