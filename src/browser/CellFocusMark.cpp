#include "browser/CellFocusMark.h"

#include <QPainter>

namespace {

constexpr qreal lineWidth = 2.0;
constexpr qreal radius = 4.0;

} // namespace

CellFocusMark::CellFocusMark(QWidget* viewport)
    : QWidget(viewport)
{
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setAttribute(Qt::WA_NoSystemBackground);
    hide();
}

void CellFocusMark::setColor(const QColor& color)
{
    m_color = color;
    update();
}

void CellFocusMark::mark(const QRect& cell)
{
    setVisible(!cell.isEmpty());
    if (cell.isEmpty())
        return;
    setGeometry(cell);
    raise();
}

void CellFocusMark::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(m_color.isValid() ? m_color : palette().highlight().color(), lineWidth));
    const qreal inset = lineWidth / 2;
    painter.drawRoundedRect(QRectF(rect()).adjusted(inset, inset, -inset, -inset), radius, radius);
}
