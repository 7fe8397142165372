// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "browser/CellMarks.h"

#include "browser/CellText.h"
#include "browser/MarkSign.h"

#include <QHelpEvent>
#include <QPainter>
#include <QToolTip>

#include <utility>

namespace {

constexpr int cornerGap = 4; // from the corner of the picture
constexpr int gap = 3;       // between two marks
constexpr int maxMarks = 2;

} // namespace

CellMarks::CellMarks(QWidget* face, StateQuery state)
    : QWidget(face)
    , m_query(std::move(state))
{
    setObjectName(QStringLiteral("marks"));
    setAttribute(Qt::WA_NoSystemBackground);
    move(cornerGap, cornerGap);
    setDiameter(m_diameter);
    raise();
    show();
}

void CellMarks::setDiameter(int pixels)
{
    m_diameter = pixels;
    setFixedSize(maxMarks * pixels + gap, pixels);
    update();
}

void CellMarks::invalidate()
{
    m_isStale = true;
    update();
}

const SCellState& CellMarks::state()
{
    if (std::exchange(m_isStale, false))
        m_state = m_query();
    return m_state;
}

/// A download shows its ring instead.
bool CellMarks::hasFilesMark()
{
    return state().files != SCellState::Files::Downloading;
}

QRectF CellMarks::place(int number) const
{
    return {number * qreal(m_diameter + gap), 0, qreal(m_diameter), qreal(m_diameter)};
}

void CellMarks::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    int number = 0;
    if (hasFilesMark())
        paintFiles(painter, place(number++));
    if (state().isNew)
        MarkSign::paint(painter, place(number), MarkSign::Star, m_accent, m_onAccent);
}

void CellMarks::paintFiles(QPainter& painter, const QRectF& place)
{
    switch (state().files) {
    case SCellState::Files::OnDisk:
        MarkSign::paint(painter, place, MarkSign::Tick, m_plate, m_sign);
        return;
    case SCellState::Files::Missing:
        MarkSign::paint(painter, place, MarkSign::Arrow, m_plate, m_sign);
        return;
    case SCellState::Files::Outdated:
        MarkSign::paint(painter, place, MarkSign::Circle, m_accent, m_onAccent);
        return;
    case SCellState::Files::Failed:
        MarkSign::paint(painter, place, MarkSign::Exclamation, m_alarm, m_onAlarm);
        return;
    case SCellState::Files::Downloading:
        return;
    }
}

QString CellMarks::textAt(const QPoint& point)
{
    const int files = hasFilesMark() ? 1 : 0;
    QString text;
    if (files == 1 && place(0).contains(point))
        text = CellText::ofFiles(state());
    else if (state().isNew && place(files).contains(point))
        text = CellText::ofNew();
    if (!text.isEmpty())
        text[0] = text.at(0).toUpper();
    return text;
}

bool CellMarks::event(QEvent* event)
{
    if (event->type() != QEvent::ToolTip)
        return QWidget::event(event);
    const auto* const help = static_cast<QHelpEvent*>(event);
    const QString text = textAt(help->pos());
    if (text.isEmpty()) {
        event->ignore();
        return true;
    }
    QToolTip::showText(help->globalPos(), text, this);
    return true;
}
