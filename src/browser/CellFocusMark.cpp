// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "browser/CellFocusMark.h"

#include <QEvent>
#include <QPainter>

namespace {

constexpr qreal frameWidth = 2.0;
constexpr qreal radius = 4.0;

} // namespace

CellFocusMark::CellFocusMark(QWidget* viewport)
    : QWidget(viewport)
{
    setObjectName(QStringLiteral("focusMark"));
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setAttribute(Qt::WA_NoSystemBackground);
    hide();
    viewport->installEventFilter(this);
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

bool CellFocusMark::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::ChildAdded && isVisible())
        raise(); // the current row may get its cell later
    return QWidget::eventFilter(watched, event);
}

void CellFocusMark::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(m_color.isValid() ? m_color : palette().highlight().color(), frameWidth));
    const qreal inset = frameWidth / 2;
    painter.drawRoundedRect(QRectF(rect()).adjusted(inset, inset, -inset, -inset), radius, radius);
}
