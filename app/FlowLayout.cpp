// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "FlowLayout.h"

#include <QStyle>
#include <QWidget>

#include <algorithm>

namespace {

bool expands(const QLayoutItem& item)
{
    return item.expandingDirections().testFlag(Qt::Horizontal);
}

/// An expanding item may be narrower than it would like to be.
int widthOf(const QLayoutItem& item)
{
    return expands(item) ? item.minimumSize().width() : item.sizeHint().width();
}

} // namespace

FlowLayout::FlowLayout(QWidget* parent)
    : QLayout(parent)
{
    setContentsMargins(0, 0, 0, 0);
}

FlowLayout::~FlowLayout()
{
    qDeleteAll(m_items);
}

void FlowLayout::addItem(QLayoutItem* item)
{
    m_items.append(item);
}

QLayoutItem* FlowLayout::itemAt(int index) const
{
    return m_items.value(index);
}

QLayoutItem* FlowLayout::takeAt(int index)
{
    return index >= 0 && index < m_items.size() ? m_items.takeAt(index) : nullptr;
}

int FlowLayout::gap() const
{
    const QWidget* const owner = parentWidget();
    constexpr int usual = 6;
    const int gap = owner
        ? owner->style()->pixelMetric(QStyle::PM_LayoutHorizontalSpacing, nullptr, owner)
        : usual;
    return gap >= 0 ? gap : usual;
}

int FlowLayout::heightOf(const Row& row)
{
    int height = 0;
    for (const QLayoutItem* item : row)
        height = qMax(height, item->sizeHint().height());
    return height;
}

QVector<FlowLayout::Row> FlowLayout::rowsFor(int width) const
{
    QVector<Row> rows;
    int used = 0;
    for (QLayoutItem* item : m_items) {
        if (item->isEmpty())
            continue;
        const int wanted = widthOf(*item);
        if (rows.isEmpty() || used + gap() + wanted > width) {
            rows.append(Row());
            used = wanted;
        } else {
            used += gap() + wanted;
        }
        rows.last().append(item);
    }
    return rows;
}

int FlowLayout::heightForWidth(int width) const
{
    const QVector<Row> rows = rowsFor(width);
    int height = 0;
    for (const Row& row : rows)
        height += heightOf(row) + gap();
    return qMax(0, height - gap());
}

QSize FlowLayout::sizeHint() const
{
    int width = 0;
    for (const QLayoutItem* item : m_items) {
        if (!item->isEmpty())
            width += item->sizeHint().width() + gap();
    }
    width = qMax(0, width - gap());
    return {width, heightForWidth(width)};
}

QSize FlowLayout::minimumSize() const
{
    QSize size;
    for (const QLayoutItem* item : m_items) {
        if (!item->isEmpty())
            size = size.expandedTo({widthOf(*item), item->minimumSize().height()});
    }
    return size;
}

void FlowLayout::setGeometry(const QRect& rect)
{
    QLayout::setGeometry(rect);
    const QVector<Row> rows = rowsFor(rect.width());
    int top = rect.top();
    for (const Row& row : rows) {
        const int height = heightOf(row);
        placeRow(row, {rect.left(), top, rect.width(), height});
        top += height + gap();
    }
}

void FlowLayout::placeRow(const Row& row, const QRect& place) const
{
    int free = place.width() - gap() * (row.size() - 1);
    int expanding = 0;
    for (const QLayoutItem* item : row) {
        free -= widthOf(*item);
        expanding += expands(*item) ? 1 : 0;
    }
    const Qt::LayoutDirection direction =
        parentWidget() ? parentWidget()->layoutDirection() : Qt::LeftToRight;
    int left = place.left();
    for (QLayoutItem* item : row) {
        int width = qMin(widthOf(*item), place.width());
        if (expands(*item))
            width += qMax(0, free / expanding);
        const QRect cell(left, place.top(), width, place.height());
        item->setGeometry(QStyle::visualRect(direction, place, cell));
        left += width + gap();
    }
}
