// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "browser/CellAccessible.h"

#include "browser/CellText.h"
#include "browser/DownloadAccessible.h"
#include "browser/EUIItemRole.h"
#include "browser/MVThemeItemSubwdgt_Preview.h"
#include "browser/mvThemelistview.h"
#include "catalogue/MVThemeMgr.h"
#include "records/KindTable.h"

#include <QAbstractProxyModel>
#include <QItemSelectionModel>
#include <QRect>
#include <QWindow>

QString CellAccessible::favouriteAction()
{
    return QStringLiteral("Favourite");
}

QString CellAccessible::detailsAction()
{
    return QStringLiteral("Details");
}

QString CellAccessible::cancelAction()
{
    return QStringLiteral("Cancel");
}

CellAccessible::CellAccessible(mvThemelistview& view, const QModelIndex& row)
    : m_view(&view)
    , m_row(row)
{
}

CellAccessible::~CellAccessible()
{
    if (m_progress != 0)
        QAccessible::deleteAccessibleInterface(m_progress);
}

QModelIndex CellAccessible::shownRow() const
{
    const auto* const shown =
        m_view ? qobject_cast<const QAbstractProxyModel*>(m_view->model()) : nullptr;
    return shown && m_row.isValid() ? shown->mapFromSource(m_row) : QModelIndex();
}

QString CellAccessible::guid() const
{
    return m_row.data(UIItemRole_GUID).toString();
}

SCellState CellAccessible::cellState() const
{
    return m_view ? m_view->stateOf(guid()) : SCellState();
}

bool CellAccessible::isValid() const
{
    return shownRow().isValid();
}

QWindow* CellAccessible::window() const
{
    return m_view ? m_view->window()->windowHandle() : nullptr;
}

QAccessibleInterface* CellAccessible::parent() const
{
    return QAccessible::queryAccessibleInterface(m_view);
}

int CellAccessible::childCount() const
{
    return cellState().files == SCellState::Files::Downloading ? 1 : 0;
}

QAccessibleInterface* CellAccessible::child(int index) const
{
    if (index != 0 || childCount() == 0)
        return nullptr;
    if (m_progress == 0)
        m_progress = QAccessible::registerAccessibleInterface(
            new DownloadAccessible(const_cast<CellAccessible&>(*this)));
    return QAccessible::accessibleInterface(m_progress);
}

int CellAccessible::indexOfChild(const QAccessibleInterface* child) const
{
    return child && child == this->child(0) ? 0 : -1;
}

QAccessibleInterface* CellAccessible::childAt(int x, int y) const
{
    return rect().contains(x, y) ? child(0) : nullptr;
}

QString CellAccessible::text(QAccessible::Text type) const
{
    if (type != QAccessible::Name || !isValid())
        return {};
    SCfg_Item* const item = MVThemeMgr::init()->findItemByIDFromDisplay(kindOfItems(), guid());
    if (!item)
        return m_row.data(Qt::AccessibleTextRole).toString();
    const QAbstractItemModel* const shown = m_view->model();
    const int last = shown->rowCount() - 1;
    const bool hasMore = shown->index(last, 0).data(UIItemRole_GUID).toString().isEmpty();
    return CellText::spoken(*item, cellState()) + QStringLiteral(", ")
        + CellText::position(shownRow().row() + 1, hasMore ? last : last + 1);
}

ECfgItemType CellAccessible::kindOfItems() const
{
    return m_view ? kindShownBy(m_view->uiItemType()) : eCfgItem_Resource;
}

QRect CellAccessible::rect() const
{
    if (!isValid())
        return {};
    const QRect cell = m_view->visualRect(shownRow());
    return {m_view->viewport()->mapToGlobal(cell.topLeft()), cell.size()};
}

QAccessible::State CellAccessible::state() const
{
    QAccessible::State state;
    const QModelIndex row = shownRow();
    if (!row.isValid()) {
        state.invalid = true;
        return state;
    }
    const bool isCurrent = m_view->currentIndex() == row;
    state.selectable = true;
    state.selected = m_view->selectionModel()->isSelected(row) || isCurrent;
    state.focusable = true;
    state.focused = isCurrent && m_view->hasFocus();
    state.busy = cellState().files == SCellState::Files::Downloading;
    state.invisible = !m_view->isVisible();
    state.offscreen = !m_view->viewport()->rect().intersects(m_view->visualRect(row));
    return state;
}

void* CellAccessible::interface_cast(QAccessible::InterfaceType type)
{
    return type == QAccessible::ActionInterface ? static_cast<QAccessibleActionInterface*>(this)
                                                : nullptr;
}

QStringList CellAccessible::actionNames() const
{
    QStringList names = {pressAction()};
    if (!guid().isEmpty()) {
        const SCellState::Files files = cellState().files;
        const SKindInfo* const kind = KindTable::find(kindOfItems());
        const bool isReady =
            files == SCellState::Files::OnDisk || files == SCellState::Files::Outdated;
        if (files == SCellState::Files::Downloading)
            names = QStringList{cancelAction()};
        if (isReady && kind && kind->favourites != EFavouritesFile::None)
            names.append(favouriteAction());
        names.append(detailsAction());
    }
    names.append(setFocusAction());
    return names;
}

QString CellAccessible::pressName() const
{
    if (guid().isEmpty())
        return m_row.data(Qt::AccessibleTextRole).toString();
    const SCellState::Files files = cellState().files;
    const bool isMissing =
        files == SCellState::Files::Missing || files == SCellState::Files::Failed;
    return isMissing ? tr("Download and apply") : tr("Apply");
}

QString CellAccessible::localizedActionName(const QString& name) const
{
    if (name == pressAction())
        return pressName();
    if (name == favouriteAction())
        return cellState().isFavourite ? MVThemeItemSubwdgt_Preview::tr("Remove from Favorites")
                                       : MVThemeItemSubwdgt_Preview::tr("Add to Favorites");
    if (name == detailsAction())
        return tr("Show details");
    if (name == cancelAction())
        return tr("Cancel the download");
    return QAccessibleActionInterface::localizedActionName(name);
}

QString CellAccessible::localizedActionDescription(const QString& name) const
{
    return localizedActionName(name);
}

QStringList CellAccessible::keyBindingsForAction(const QString& name) const
{
    if (name == pressAction())
        return {QStringLiteral("Return")};
    if (name == favouriteAction())
        return {QStringLiteral("F")};
    if (name == cancelAction())
        return {QStringLiteral("Escape")};
    return {};
}

void CellAccessible::cancelDownload()
{
    doAction(cancelAction());
}

void CellAccessible::doAction(const QString& name)
{
    if (!m_view)
        return;
    QMetaObject::invokeMethod(
        m_view, [view = m_view.data(), row = m_row, name] { perform(*view, row, name); },
        Qt::QueuedConnection);
}

void CellAccessible::perform(mvThemelistview& view, const QModelIndex& row, const QString& name)
{
    const auto* const shown = qobject_cast<const QAbstractProxyModel*>(view.model());
    const QModelIndex index = row.isValid() ? shown->mapFromSource(row) : QModelIndex();
    if (!index.isValid())
        return;
    const QString guid = row.data(UIItemRole_GUID).toString();
    if (name == pressAction())
        view.activate(index);
    else if (name == favouriteAction())
        view.toggleFavourite(guid);
    else if (name == detailsAction())
        emit view.detailsRequested(guid);
    else if (name == cancelAction())
        view.cancelDownload(guid);
    else if (name == setFocusAction())
        focus(view, index);
}

void CellAccessible::focus(mvThemelistview& view, const QModelIndex& index)
{
    view.setCurrentIndex(index);
    view.setFocus(Qt::OtherFocusReason);
}
