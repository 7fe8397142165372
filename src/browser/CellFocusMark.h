#pragma once

#include <QColor>
#include <QWidget>

/// The outline around the cell that the keyboard is on. It lies above the cell, which covers all
/// that its list paints, and lets the mouse through. A style sheet sets its colour:
///
///     CellFocusMark { qproperty-color: #2060c0; }
class CellFocusMark : public QWidget
{
    Q_OBJECT
    /// Not valid at first: the palette's highlight.
    Q_PROPERTY(QColor color READ color WRITE setColor)

public:
    explicit CellFocusMark(QWidget* viewport);

    QColor color() const { return m_color; }
    void setColor(const QColor& color);

    /// Around this rectangle of the viewport; an empty one hides the mark.
    void mark(const QRect& cell);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QColor m_color;
};
