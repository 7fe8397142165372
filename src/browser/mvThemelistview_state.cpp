// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

// mvThemelistview: the states of its items, and what its cells do and show at the host's request.

#include "browser/EUIItemRole.h"
#include "browser/ListAnnouncer.h"
#include "browser/MVResourceItemDelegate.h"
#include "browser/MVThemeItemWdg.h"
#include "browser/mvThemelistview.h"
#include "browser/MVThemeSortFilterProxyModel.h"
#include "browser/SCellState.h"
#include "catalogue/ItemFiles.h"
#include "catalogue/MVThemeMgr.h"
#include "catalogue/NoneEntry.h"
#include "records/SCfg_Item.h"

#include <QStandardItemModel>

#include <utility>

void mvThemelistview::setUpdatable(const QSet<QString>& guids)
{
    const QSet<QString> before = std::exchange(m_updatable, guids);
    markRows(UIItemRole_Updatable, guids);
    const QSet<QString> changed = (before - guids) + (guids - before);
    for (const QString& guid : changed)
        m_pAnnouncer->announceState(guid);
    updateMarks();
}

void mvThemelistview::setNew(const QSet<QString>& guids)
{
    m_new = guids;
    markRows(UIItemRole_New, guids);
    updateMarks();
}

void mvThemelistview::markRows(int role, const QSet<QString>& guids)
{
    for (int row = 0; row < rowCount(); ++row) {
        const QModelIndex index = m_pModel->index(row, 0);
        const bool isMarked = guids.contains(index.data(UIItemRole_GUID).toString());
        if (index.data(role).toBool() != isMarked)
            m_pModel->setData(index, isMarked ? QVariant(true) : QVariant(), role);
    }
}

SCellState mvThemelistview::stateOf(const QString& guid) const
{
    const QStandardItem* const row = m_mapItems.value(QUuid(guid));
    SCfg_Item* const item =
        row ? MVThemeMgr::init()->findItemByIDFromDisplay(kindShownBy(m_eType), guid) : nullptr;
    if (!item)
        return {};
    const MVThemeItemWdg* const cell = itemWidget(row->index());
    SCellState state;
    state.isFavourite = MVThemeMgr::init()->isItemCollect(item);
    state.isNew = m_new.contains(guid);
    state.isApplied = appliedItem() == guid;
    if (cell && cell->isDownloading()) {
        state.files = SCellState::Files::Downloading;
        state.percent = cell->percent();
        state.receivedBytes = cell->receivedBytes();
        return state;
    }
    const auto error = cell ? cell->shownError() : m_pDelegate->rememberedError(guid);
    const bool hasFailed = error != eDownLoadError_None;
    if (ItemFiles::needsAny(*item))
        state.files = hasFailed ? SCellState::Files::Failed : SCellState::Files::Missing;
    else if (m_updatable.contains(guid))
        state.files = SCellState::Files::Outdated;
    return state;
}

void mvThemelistview::setApplyOn(EApplyOn action)
{
    m_eApplyOn = action;
    setUpCells();
}

void mvThemelistview::setMarksShown(bool shown)
{
    m_bMarks = shown;
    setUpCells();
}

void mvThemelistview::updateMarks()
{
    if (!m_bMarks)
        return;
    const QVector<MVThemeItemWdg*> all = cells();
    for (MVThemeItemWdg* const cell : all)
        cell->updateMarks();
}

void mvThemelistview::setUpCells()
{
    const QVector<MVThemeItemWdg*> all = cells();
    for (MVThemeItemWdg* const cell : all)
        setUpCell(cell);
}

void mvThemelistview::setUpCell(MVThemeItemWdg* cell)
{
    cell->setApplyOn(m_eApplyOn);
    cell->setCrossOnHover(m_bMarks);
    const SCfg_Item* const item = cell->getItem();
    if (m_bMarks && item && !isNoneEntry(*item)) // which has no files
        cell->setMarks([this, guid = item->m_qsGUID] { return stateOf(guid); });
    else
        cell->setMarks({});
}

void mvThemelistview::activate(const QModelIndex& shownRow)
{
    if (!m_pProxy || !shownRow.isValid())
        return;
    if (MVThemeItemWdg* const widget = neededWidget(m_pProxy->mapToSource(shownRow).row()))
        widget->activate();
}

void mvThemelistview::toggleFavourite(const QString& guid)
{
    if (MVThemeItemWdg* const widget = cell(guid))
        widget->toggleFavourite();
}

void mvThemelistview::cancelDownload(const QString& guid)
{
    const QStandardItem* const row = m_mapItems.value(QUuid(guid));
    if (MVThemeItemWdg* const widget = row ? itemWidget(row->index()) : nullptr)
        widget->cancelDownload();
}

void mvThemelistview::applyCurrent()
{
    activate(currentIndex());
}
