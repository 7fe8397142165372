// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QColor>
#include <QWidget>

/// The outline around the cell that has the keyboard focus. It stays above all cells, which cover
/// whatever their list paints, and is transparent to the mouse. A style sheet sets its colour:
///
///     CellFocusMark { qproperty-color: #2060c0; }
class CellFocusMark : public QWidget
{
    Q_OBJECT
    /// Invalid by default, which selects the palette's highlight.
    Q_PROPERTY(QColor color READ color WRITE setColor)

public:
    explicit CellFocusMark(QWidget* viewport);

    QColor color() const { return m_color; }
    void setColor(const QColor& color);

    /// Outlines this rectangle of the viewport; an empty one hides the mark.
    void mark(const QRect& cell);

    bool eventFilter(QObject* watched, QEvent* event) override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QColor m_color;
};
