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

/// Returns the width of an item to which its row gives `extra` if it expands.
int widthWith(int extra, const QLayoutItem& item, int room)
{
    const int width = widthOf(item);
    return qMin(expands(item) ? qMin(width + extra, item.maximumSize().width()) : width, room);
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

/// Returns the width of an expanding item of the row beyond the one it needs.
int FlowLayout::extraWidth(const Row& row, int width) const
{
    int free = width - gap() * (row.size() - 1);
    int expanding = 0;
    for (const QLayoutItem* item : row) {
        free -= widthOf(*item);
        expanding += expands(*item) ? 1 : 0;
    }
    return expanding > 0 ? qMax(0, free / expanding) : 0;
}

int FlowLayout::heightOf(const Row& row, int width) const
{
    const int extra = extraWidth(row, width);
    int height = 0;
    for (const QLayoutItem* item : row) {
        const int own = widthWith(extra, *item, width);
        height =
            qMax(height,
                 item->hasHeightForWidth() ? item->heightForWidth(own) : item->sizeHint().height());
    }
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
    const QMargins margins = contentsMargins();
    const int room = width - margins.left() - margins.right();
    const QVector<Row> rows = rowsFor(room);
    int height = 0;
    for (const Row& row : rows)
        height += heightOf(row, room) + gap();
    return qMax(0, height - gap()) + margins.top() + margins.bottom();
}

QSize FlowLayout::sizeHint() const
{
    int width = 0;
    for (const QLayoutItem* item : m_items) {
        if (!item->isEmpty())
            width += item->sizeHint().width() + gap();
    }
    const QMargins margins = contentsMargins();
    width = qMax(0, width - gap()) + margins.left() + margins.right();
    return {width, heightForWidth(width)};
}

QSize FlowLayout::minimumSize() const
{
    QSize size;
    for (const QLayoutItem* item : m_items) {
        if (!item->isEmpty())
            size = size.expandedTo({widthOf(*item), item->minimumSize().height()});
    }
    return size.grownBy(contentsMargins());
}

void FlowLayout::setGeometry(const QRect& rect)
{
    QLayout::setGeometry(rect);
    const QRect room = rect.marginsRemoved(contentsMargins());
    const QVector<Row> rows = rowsFor(room.width());
    int top = room.top();
    for (const Row& row : rows) {
        const int height = heightOf(row, room.width());
        placeRow(row, {room.left(), top, room.width(), height});
        top += height + gap();
    }
}

void FlowLayout::placeRow(const Row& row, const QRect& place) const
{
    const int extra = extraWidth(row, place.width());
    const Qt::LayoutDirection direction =
        parentWidget() ? parentWidget()->layoutDirection() : Qt::LeftToRight;
    int left = place.left();
    for (QLayoutItem* item : row) {
        const int width = widthWith(extra, *item, place.width());
        const QRect cell(left, place.top(), width, place.height());
        item->setGeometry(QStyle::visualRect(direction, place, cell));
        left += width + gap();
    }
}
