// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

// mvThemelistview: the cells of its rows, for all rows or on demand.

#include "browser/CellEvents.h"
#include "browser/CellPool.h"
#include "browser/EUIItemRole.h"
#include "browser/MVResourceItemDelegate.h"
#include "browser/MVThemeItemWdg.h"
#include "browser/mvThemelistview.h"
#include "browser/MVThemeSortFilterProxyModel.h"
#include "browser/ShownItems.h"
#include "records/SCfg_Item.h"

#include <QCoreApplication>
#include <QEvent>
#include <QHideEvent>
#include <QLayout>
#include <QStandardItemModel>

namespace {

constexpr int maxShownOneByOne = 8; // cells

/// Performs at once what the parts of a new cell have asked Qt to do later, and removes the
/// requests. Qt compares each one with all pending events, so those of a thousand cells would take
/// longer than the cells themselves.
void settleRequests(QWidget* cell)
{
    const QList<QWidget*> parts = QList<QWidget*>{cell} + cell->findChildren<QWidget*>();
    for (QWidget* const part : parts) {
        part->ensurePolished();
        if (part->layout() && part->isVisible())
            part->layout()->activate();
    }
    // One look through the queue removes those of all parts. Other widgets do not need theirs: they
    // are polished when they are shown.
    QCoreApplication::removePostedEvents(nullptr, QEvent::PolishRequest);
    for (QWidget* const part : parts) {
        QCoreApplication::removePostedEvents(part, QEvent::LayoutRequest);
        QCoreApplication::removePostedEvents(part, QEvent::UpdateLater);
    }
}

} // namespace

void mvThemelistview::setCellsOnDemand(bool onDemand)
{
    if (onDemand == hasCellsOnDemand())
        return;
    if (!onDemand) {
        m_pPool.reset();
        updateItemState();
        return;
    }
    m_pPool = std::make_unique<CellPool>(
        *this, [this](const QModelIndex& index) { return isCellKept(index); },
        [this](const QModelIndex& index) { giveBack(index); });
    for (int row = 0; m_pProxy && row < m_pProxy->rowCount(); ++row) {
        const QModelIndex index = m_pProxy->index(row, 0);
        if (isPersistentEditorOpen(index))
            m_pPool->adopt(index);
    }
    // A cell out of view may have been kept only until then.
    const CellEvents* const events = CellEvents::instance();
    connect(events, &CellEvents::downloadEnded, m_pPool.get(), &CellPool::update);
    connect(events, &CellEvents::itemApplied, m_pPool.get(), &CellPool::update);
    updatePool();
}

void mvThemelistview::updateItemState()
{
    if (!m_pProxy)
        return;
    if (m_pPool) {
        updatePool();
        openReappearedDownloads();
    } else {
        openAllCells();
    }
    viewport()->update();
}

/// A download that a filter has hidden gets its cell back wherever its row is, as it applies its
/// item.
void mvThemelistview::openReappearedDownloads()
{
    for (int row = 0; row < rowCount(); ++row) {
        const MVThemeItemWdg* const cell = itemWidget(row);
        if (cell && cell->isDeletedAfterDownload())
            m_pPool->open(m_pProxy->index(row, 0));
    }
}

void mvThemelistview::openAllCells()
{
    QModelIndexList missing;
    for (int row = 0; row < m_pProxy->rowCount(); ++row) {
        const QModelIndex index = m_pProxy->index(row, 0);
        if (!isPersistentEditorOpen(index))
            missing.append(index);
    }
    const bool areMany = missing.size() > maxShownOneByOne;
    for (const QModelIndex& index : std::as_const(missing)) {
        openPersistentEditor(index);
        QWidget* const cell = indexWidget(index);
        if (cell && areMany)
            settleRequests(cell);
    }
}

void mvThemelistview::updatePool()
{
    if (m_pPool && m_pProxy)
        m_pPool->update();
}

/// Returns whether a cell stays although its row is out of view.
bool mvThemelistview::isCellKept(const QModelIndex& index) const
{
    const QWidget* const widget = indexWidget(index);
    const QWidget* const focused = focusWidget();
    const auto* const cell = qobject_cast<const MVThemeItemWdg*>(widget);
    return index == currentIndex() || selectionModel()->isSelected(index)
        || (focused && widget->isAncestorOf(focused))
        || (cell && (cell->isDownloading() || cell->isChecked() || cell->isPlaying()));
}

void mvThemelistview::giveBack(const QModelIndex& index)
{
    // The cell exists until the current event is over.
    m_pProxy->setData(index, QVariant::fromValue<QObject*>(nullptr), UIItemRole_Widget);
}

QVector<MVThemeItemWdg*> mvThemelistview::cells() const
{
    QVector<MVThemeItemWdg*> found;
    for (int row = 0; row < rowCount(); ++row) {
        MVThemeItemWdg* const widget = itemWidget(row);
        if (widget && widget->getItem())
            found.append(widget);
    }
    return found;
}

MVThemeItemWdg* mvThemelistview::cell(const QString& guid) const
{
    for (int row = 0; row < rowCount(); ++row) {
        if (m_pModel->index(row, 0).data(UIItemRole_GUID).toString() != guid)
            continue;
        MVThemeItemWdg* const widget = neededWidget(row);
        if (widget && widget->getItem())
            return widget;
    }
    return nullptr;
}

void mvThemelistview::ShowThemeSubWdgByOptTag(const QModelIndex& index)
{
    openPersistentEditor(m_pProxy->mapFromSource(index));
}

MVThemeItemWdg* mvThemelistview::itemWidget(int row) const
{
    return itemWidget(m_pModel->index(row, 0));
}

MVThemeItemWdg* mvThemelistview::itemWidget(const QModelIndex& index)
{
    return qobject_cast<MVThemeItemWdg*>(index.data(UIItemRole_Widget).value<QObject*>());
}

/// Returns the widget of a row of the source model, with cells on demand a new one if it passes the
/// filter and has none.
MVThemeItemWdg* mvThemelistview::neededWidget(int row) const
{
    if (m_pPool)
        m_pPool->open(m_pProxy->mapFromSource(m_pModel->index(row, 0)));
    return itemWidget(row);
}

MVThemeItemWdg* mvThemelistview::currentWidget() const
{
    if (m_pPool)
        m_pPool->open(currentIndex());
    return itemWidget(currentIndex());
}

MVThemeItemWdg* mvThemelistview::firstItemWidget() const
{
    for (int row = 0; row < rowCount(); ++row) {
        if (MVThemeItemWdg* widget = neededWidget(row))
            return widget;
    }
    return nullptr;
}

/// Qt would open a cell for the row that the user works on, and close it when that changes, in view
/// or not.
bool mvThemelistview::edit(const QModelIndex& index, EditTrigger trigger, QEvent* event)
{
    if (m_pPool)
        m_pPool->open(index);
    return QListView::edit(index, trigger, event);
}

void mvThemelistview::showEvent(QShowEvent* event)
{
    QListView::showEvent(event);
    updatePool();
    noteShownItems();
}

/// Qt's view would lay out all rows again for every range of rows that a filter shows again.
void mvThemelistview::rowsInserted(const QModelIndex& /*parent*/, int /*start*/, int /*end*/)
{
    scheduleDelayedItemsLayout();
}

void mvThemelistview::hideEvent(QHideEvent* event)
{
    QListView::hideEvent(event);
    noteShownItems();
}

void mvThemelistview::noteShownItems()
{
    if (m_pShown)
        m_pShown->update();
}

/// A row without a cell looks for its pictures when it gets one.
void mvThemelistview::showArrivedPicture(const QString& guid)
{
    const QStandardItem* const row = m_mapItems.value(QUuid(guid));
    if (!row)
        return;
    if (MVThemeItemWdg* const cell = itemWidget(row->index()))
        cell->showArrivedPictures();
}
