// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "host/widgets/MvHostUiExport.h"

#include <QRect>
#include <QSize>
#include <QWidget>

/// The metrics that a skin gives to the cells of resource lists. Never shown: it is a widget so
/// that the application's style sheet can set them, for example
///
///     SkinWidget {
///         qproperty-themeItemSize: 160px 120px;
///         qproperty-themeItemPadding: rect(4 6 4 6);
///     }
///
/// Sizes need their unit; a single length sets both. Rectangles are whole numbers without a unit,
/// separated by blanks: Qt reads "rect(4, 6, 4, 6)" and "rect(4px 6px 4px 6px)" as zeros. Paddings
/// are stored in a rectangle whose x, y, width and height are top, right, bottom and left. Metrics
/// not set by a style sheet or a setter are QSize(-1, -1) and a null QRect. GUI thread only.
class MVHOSTUI_EXPORT SkinWidget : public QWidget
{
    Q_OBJECT
    /// Size of a theme cell in pixels, without padding.
    Q_PROPERTY(QSize themeItemSize READ themeItemSize WRITE setThemeItemSize)
    /// Pixels around a theme cell.
    Q_PROPERTY(QRect themeItemPadding READ themeItemPadding WRITE setThemeItemPadding)
    /// Size of a filter cell in pixels, without padding.
    Q_PROPERTY(QSize filterItemSize READ filterItemSize WRITE setFilterItemSize)
    /// Pixels around a filter cell.
    Q_PROPERTY(QRect filterItemPadding READ filterItemPadding WRITE setFilterItemPadding)

public:
    /// Returns the widget of this application, with the current style sheet applied. It is created
    /// on the first call, which needs a QApplication, and destroyed with that; do not keep the
    /// pointer longer.
    static SkinWidget* instance();

    /// Returns the property of that name.
    QSize themeItemSize() const { return m_themeItemSize; }
    /// Sets the property themeItemSize.
    void setThemeItemSize(const QSize& size) { m_themeItemSize = size; }
    /// Returns the property of that name.
    QRect themeItemPadding() const { return m_themeItemPadding; }
    /// Sets the property themeItemPadding.
    void setThemeItemPadding(const QRect& padding) { m_themeItemPadding = padding; }
    /// Returns the property of that name.
    QSize filterItemSize() const { return m_filterItemSize; }
    /// Sets the property filterItemSize.
    void setFilterItemSize(const QSize& size) { m_filterItemSize = size; }
    /// Returns the property of that name.
    QRect filterItemPadding() const { return m_filterItemPadding; }
    /// Sets the property filterItemPadding.
    void setFilterItemPadding(const QRect& padding) { m_filterItemPadding = padding; }

private:
    SkinWidget() = default;

    QSize m_themeItemSize{-1, -1};
    QRect m_themeItemPadding;
    QSize m_filterItemSize{-1, -1};
    QRect m_filterItemPadding;
};
