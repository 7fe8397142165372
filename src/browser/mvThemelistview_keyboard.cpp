// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

// mvThemelistview: keyboard control, focus, and accessibility.

#include "browser/CellFocusMark.h"
#include "browser/EUIItemRole.h"
#include "browser/MVThemeItemSubwdgt_Preview.h"
#include "browser/MVThemeItemWdg.h"
#include "browser/mvThemelistview.h"
#include "host/HostSettings.h"
#include "records/SCfg_Item.h"

#include <QAbstractItemModel>
#include <QContextMenuEvent>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QStandardItemModel>

namespace {

bool isCellKey(int key)
{
    return key == Qt::Key_Enter || key == Qt::Key_Return || key == Qt::Key_F
        || key == Qt::Key_Space;
}

} // namespace

void mvThemelistview::keyPressEvent(QKeyEvent* event)
{
    showFocus(true);
    const bool plain = (event->modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier;
    // A held key acts once; its repeats would apply, or toggle the favourite, repeatedly.
    const bool held = event->isAutoRepeat() && isCellKey(event->key());
    if (plain && (held || actOnCurrentCell(event->key()))) {
        event->accept();
        return;
    }
    QListView::keyPressEvent(event);
}

/// Handles a cell's key and returns whether it was one. The cell may be destroyed afterwards.
bool mvThemelistview::actOnCurrentCell(int key)
{
    MVThemeItemWdg* const widget = currentWidget();
    if (!widget)
        return false;
    switch (key) {
    case Qt::Key_Enter:
    case Qt::Key_Return:
        widget->activate();
        return true;
    case Qt::Key_Escape:
        if (!widget->isDownloading())
            return false;
        widget->cancelDownload();
        return true;
    case Qt::Key_F:
        widget->toggleFavourite();
        return true;
    case Qt::Key_Space:
        widget->togglePreview();
        return true;
    default:
        return false;
    }
}

void mvThemelistview::mousePressEvent(QMouseEvent* event)
{
    const bool isMeaningful =
        event->button() == Qt::LeftButton || event->button() == Qt::RightButton;
    if (hostSettings().leftButtonOnly && !isMeaningful)
        return; // Qt would make the row current
    showFocus(false);
    QListView::mousePressEvent(event);
}

/// Cells handle the mouse's events; the menu key refers to the current cell.
void mvThemelistview::contextMenuEvent(QContextMenuEvent* event)
{
    MVThemeItemWdg* const widget = currentWidget();
    const bool byKey = event->reason() == QContextMenuEvent::Keyboard;
    if (!byKey || !widget || !widget->getItem() || !hostSettings().leftButtonOnly) {
        QListView::contextMenuEvent(event);
        return;
    }
    const QPoint centre = visualRect(currentIndex()).center();
    event->accept();
    requestContextMenu(widget->getItem(), viewport()->mapToGlobal(centre));
}

void mvThemelistview::requestContextMenu(const SCfg_Item* item, const QPoint& globalPos)
{
    const QString guid = item->m_qsGUID;
    makeCurrent(guid);
    emit sigContextMenuRequested(guid, globalPos);
}

void mvThemelistview::focusInEvent(QFocusEvent* event)
{
    QListView::focusInEvent(event);
    if (event->reason() == Qt::TabFocusReason || event->reason() == Qt::BacktabFocusReason
        || event->reason() == Qt::ShortcutFocusReason) {
        m_bKeyboard = true;
        findCurrent();
    }
    placeFocusMark();
}

/// Gives the keyboard a row after a filter has hidden all of them.
void mvThemelistview::findCurrent()
{
    if (!model() || currentIndex().isValid())
        return;
    const QModelIndex applied = shownRow(appliedItem());
    setCurrentIndex(applied.isValid() ? applied : model()->index(0, 0));
}

void mvThemelistview::focusOutEvent(QFocusEvent* event)
{
    QListView::focusOutEvent(event);
    placeFocusMark();
}

void mvThemelistview::changeEvent(QEvent* event)
{
    QListView::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        nameMoreRow();
}

void mvThemelistview::scrollContentsBy(int dx, int dy)
{
    QListView::scrollContentsBy(dx, dy);
    updatePool();
    noteShownItems();
    placeFocusMark();
}

void mvThemelistview::currentChanged(const QModelIndex& current, const QModelIndex& previous)
{
    QListView::currentChanged(current, previous);
    placeFocusMark();
}

void mvThemelistview::updateGeometries()
{
    QListView::updateGeometries();
    updatePool();
    noteShownItems();
    placeFocusMark();
}

void mvThemelistview::showFocus(bool byKeyboard)
{
    m_bKeyboard = byKeyboard;
    placeFocusMark();
}

void mvThemelistview::placeFocusMark()
{
    const bool shown = m_bKeyboard && hasFocus() && currentIndex().isValid();
    m_pFocusMark->mark(shown ? visualRect(currentIndex()) : QRect());
}

/// The "More>>" row has no name, on which the filter relies.
void mvThemelistview::nameMoreRow()
{
    const int last = rowCount() - 1;
    if (last < 0 || !m_pModel->index(last, 0).data(UIItemRole_GUID).toString().isEmpty())
        return;
    m_pModel->setData(m_pModel->index(last, 0), MVThemeItemSubwdgt_Preview::tr("More>>"),
                      Qt::AccessibleTextRole);
}
