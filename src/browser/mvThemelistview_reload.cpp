// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

// mvThemelistview: look-up of items, and state kept over a reload of the catalogue and while the
// rows follow files.

#include "browser/CellPool.h"
#include "browser/EUIItemRole.h"
#include "browser/MVResourceItemDelegate.h"
#include "browser/MVThemeItemWdg.h"
#include "browser/mvThemelistview.h"
#include "browser/MVThemeSortFilterProxyModel.h"
#include "browser/SListFilter.h"
#include "browser/ViewRows.h"
#include "records/SCfg_Item.h"

#include <QScrollBar>

#include <algorithm>

QModelIndex mvThemelistview::shownRow(const QString& guid) const
{
    if (!m_pProxy || guid.isEmpty())
        return {};
    const QModelIndexList found =
        m_pProxy->match(m_pProxy->index(0, 0), UIItemRole_GUID, guid, 1, Qt::MatchExactly);
    return found.isEmpty() ? QModelIndex() : found.constFirst();
}

bool mvThemelistview::isDownloading() const
{
    const QVector<MVThemeItemWdg*> all = cells();
    return std::any_of(all.cbegin(), all.cend(),
                       [](const MVThemeItemWdg* cell) { return cell->isDownloading(); });
}

void mvThemelistview::cancelDownloads()
{
    const QVector<MVThemeItemWdg*> all = cells();
    for (MVThemeItemWdg* const cell : all)
        cell->cancelDownload();
}

QString mvThemelistview::appliedItem() const
{
    return m_pDelegate ? m_pDelegate->selectedItem() : QString();
}

void mvThemelistview::setAppliedItem(const QString& guid)
{
    if (m_pDelegate)
        m_pDelegate->select(guid, guid.isEmpty() ? nullptr : cell(guid));
}

void mvThemelistview::release()
{
    if (!m_pProxy)
        return;
    Kept kept;
    kept.themeType = m_pProxy->themeType();
    kept.text = m_pProxy->namePattern().pattern();
    if (m_pProxy->hasListFilter())
        kept.filter = std::make_shared<const SListFilter>(m_pProxy->listFilter());
    kept.scroll = verticalScrollBar()->value();
    kept.current = currentIndex().data(UIItemRole_GUID).toString();
    kept.applied = appliedItem();
    const QVector<MVThemeItemWdg*> all = cells();
    for (const MVThemeItemWdg* const cell : all) {
        if (!cell->isDownloading())
            continue;
        kept.downloads.append(cell->getItem()->m_qsGUID);
        if (cell->isLastChoice())
            kept.lastChoice = cell->getItem()->m_qsGUID;
    }
    clear();
    m_kept = kept;
}

void mvThemelistview::refill()
{
    if (!m_kept)
        return;
    const Kept kept = *m_kept;
    m_kept.reset();
    const CellPool::Pause pause(m_pPool.get());
    // All rows first: a cell resumes its download even if a filter hides it.
    reapplyFilter(MVThemeSortFilterProxyModel::allThemes, QString());
    initData(QUuid(), false);
    restartDownloads(kept);
    if (appliedItem().isEmpty()) // otherwise a completed download has applied its item
        setAppliedItem(kept.applied);
    restoreFilter(kept);
    makeCurrent(kept.current);
    doItemsLayout();
    verticalScrollBar()->setValue(kept.scroll);
}

void mvThemelistview::restoreFilter(const Kept& kept)
{
    if (kept.filter)
        applyFilter(*kept.filter);
    else
        reapplyFilter(kept.themeType, kept.text);
}

void mvThemelistview::restartDownloads(const Kept& kept)
{
    for (const QString& guid : kept.downloads) {
        MVThemeItemWdg* const downloading = cell(guid);
        if (downloading && guid == kept.lastChoice)
            downloading->doApplyTheme();
        else if (downloading)
            downloading->resumeDownload();
    }
}

/// Does not scroll: even an invisible list keeps its position.
void mvThemelistview::makeCurrent(const QString& guid)
{
    const QModelIndex row = shownRow(guid);
    if (!row.isValid())
        return;
    const bool isScrolling = hasAutoScroll();
    setAutoScroll(false);
    setCurrentIndex(row);
    setAutoScroll(isScrolling);
}

bool mvThemelistview::isLookingAtFiles() const
{
    return m_pProxy && m_pProxy->isLookingAtFiles();
}

void mvThemelistview::rememberPlace()
{
    m_place = Place();
    m_place.scroll = verticalScrollBar()->value();
    const bool isSorted = m_pProxy->listFilter().order == EListOrder::Size;
    if (isSorted || m_place.scroll == 0) // new rows at the top are to be seen
        return;
    const QModelIndex row = m_pProxy->index(ViewRows::within(*this, 0).first, 0);
    m_place.guid = row.data(UIItemRole_GUID).toString();
    m_place.top = visualRect(row).top();
}

void mvThemelistview::showFollowedFiles()
{
    {
        const CellPool::Pause pause(m_pPool.get());
        updateItemState();
        doItemsLayout();
        QScrollBar* const bar = verticalScrollBar();
        const QModelIndex row = shownRow(m_place.guid);
        bar->setValue(row.isValid() ? bar->value() + visualRect(row).top() - m_place.top
                                    : m_place.scroll);
    }
    emit filesFollowed();
}
