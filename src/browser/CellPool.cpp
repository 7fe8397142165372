// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "browser/CellPool.h"

#include "browser/ViewRows.h"

#include <QListView>
#include <QScopedValueRollback>
#include <QTimerEvent>

namespace {

// An editor takes about two milliseconds; the user should not wait longer than a tenth of a second.
constexpr int maxAtOnce = 32;
constexpr int maxPerTurn = 4;
constexpr int pauseMs = 15; // between turns for rows out of view, so that painting comes first

} // namespace

CellPool::CellPool(QListView& view, Condition isKept, Notification closing)
    : m_view(view)
    , m_isKept(std::move(isKept))
    , m_closing(std::move(closing))
{
}

void CellPool::update()
{
    if (!isReady())
        return;
    const QScopedValueRollback<bool> guard(m_isUpdating, true);
    const ViewRows around = ViewRows::within(m_view, 1);
    closeFar(around);
    const bool isComplete = openMissing(ViewRows::within(m_view, 0), maxAtOnce) < maxAtOnce;
    m_timer.start(isComplete ? pauseMs : 0, this);
}

void CellPool::timerEvent(QTimerEvent* event)
{
    if (event->timerId() != m_timer.timerId()) {
        QObject::timerEvent(event);
        return;
    }
    if (!isReady()) {
        m_timer.stop();
        return;
    }
    const QScopedValueRollback<bool> guard(m_isUpdating, true);
    const ViewRows around = ViewRows::within(m_view, 1);
    closeFar(around);
    if (openMissing(ViewRows::within(m_view, 0), maxPerTurn) == maxPerTurn)
        return;
    if (openMissing(around, maxPerTurn) == maxPerTurn)
        m_timer.start(pauseMs, this);
    else
        m_timer.stop();
}

QWidget* CellPool::open(const QModelIndex& index)
{
    if (!index.isValid())
        return nullptr;
    if (!m_view.isPersistentEditorOpen(index)) {
        m_view.openPersistentEditor(index);
        adopt(index);
    }
    m_timer.start(pauseMs, this);
    return m_view.indexWidget(index);
}

void CellPool::adopt(const QModelIndex& index)
{
    m_open.append(index);
}

/// Opens at most `maxOpened` editors and returns how many it has opened.
int CellPool::openMissing(const ViewRows& rows, int maxOpened)
{
    int opened = 0;
    for (int row = rows.first; row < rows.end && opened < maxOpened; ++row) {
        const QModelIndex index = m_view.model()->index(row, 0);
        if (m_view.isPersistentEditorOpen(index))
            continue;
        m_view.openPersistentEditor(index);
        if (!m_view.isPersistentEditorOpen(index))
            continue;
        adopt(index);
        ++opened;
    }
    return opened;
}

void CellPool::closeFar(const ViewRows& rows)
{
    // Closing notifies others, who may open further editors.
    const QVector<QPersistentModelIndex> open = std::exchange(m_open, {});
    for (const QPersistentModelIndex& index : open) {
        if (!index.isValid() || !m_view.isPersistentEditorOpen(index))
            continue;
        if (rows.contains(index.row()) || m_isKept(index)) {
            m_open.append(index);
            continue;
        }
        m_closing(index);
        m_view.closePersistentEditor(index);
    }
}

bool CellPool::isReady() const
{
    return m_pauses == 0 && !m_isUpdating && m_view.isVisible() && m_view.model();
}

CellPool::Pause::Pause(CellPool* pool)
    : m_pool(pool)
{
    if (m_pool)
        ++m_pool->m_pauses;
}

CellPool::Pause::~Pause()
{
    if (!m_pool)
        return;
    --m_pool->m_pauses;
    m_pool->update();
}
