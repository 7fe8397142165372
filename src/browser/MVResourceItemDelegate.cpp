// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "browser/MVResourceItemDelegate.h"

#include "browser/CheckedMark.h"
#include "browser/EUIItemRole.h"
#include "browser/FiterItemWdg.h"
#include "catalogue/MVThemeMgr.h"

#include <QAbstractProxyModel>
#include <QPersistentModelIndex>
#include <QUuid>

namespace {

/// Returns the row's index in the source model, which survives filtering.
QPersistentModelIndex sourceRow(const QModelIndex& index)
{
    const auto* proxy = qobject_cast<const QAbstractProxyModel*>(index.model());
    return proxy ? proxy->mapToSource(index) : index;
}

QVariant rowWidget(QObject* widget)
{
    return QVariant::fromValue(widget);
}

void writeRowWidget(const QModelIndex& index, QObject* widget)
{
    // The interface passes a const index, but the model is the view's own.
    auto* model = const_cast<QAbstractItemModel*>(index.model());
    model->setData(index, rowWidget(widget), UIItemRole_Widget);
}

/// Returns the widget of a row that was filtered out while downloading, or null.
MVThemeItemWdg* hiddenWidget(const QModelIndex& index)
{
    auto* widget = qobject_cast<MVThemeItemWdg*>(index.data(UIItemRole_Widget).value<QObject*>());
    return widget && widget->isDownloading() && widget->isDeletedAfterDownload() ? widget : nullptr;
}

} // namespace

MVResourceItemDelegate::MVResourceItemDelegate(QObject* parent)
    : QStyledItemDelegate(parent)
{
}

void MVResourceItemDelegate::setItemPadding(const QMargins& m)
{
    m_nPaddingTop = m.top();
    m_nPaddingRight = m.right() < 0 ? m_nPaddingTop : m.right();
    m_nPaddingBottom = m.bottom() < 0 ? m_nPaddingTop : m.bottom();
    m_nPaddingLeft = m.left() < 0 ? m_nPaddingRight : m.left();
}

void MVResourceItemDelegate::onClearSelect()
{
    m_qsHiddenSelection.clear();
    if (m_pCurSel)
        showChecked(m_pCurSel, false);
}

QString MVResourceItemDelegate::selectedItem() const
{
    const auto* const widget = qobject_cast<const MVThemeItemWdg*>(m_pCurSel);
    if (!widget)
        return m_qsHiddenSelection;
    return widget->getItem() && widget->isChecked() ? widget->getItem()->m_qsGUID : QString();
}

void MVResourceItemDelegate::select(const QString& guid, MVThemeItemWdg* widget)
{
    onClearSelect();
    if (widget) {
        widget->setSel(widget);
        return;
    }
    m_pCurSel = nullptr;
    m_qsHiddenSelection = guid;
}

void MVResourceItemDelegate::forgetSelection()
{
    m_qsHiddenSelection.clear();
    m_pCurSel = nullptr;
}

EMVThemeDownLoadError MVResourceItemDelegate::rememberedError(const QString& guid) const
{
    return m_errors.value(guid, eDownLoadError_None);
}

/// The row keeps the error of its last download until it has a cell again.
void MVResourceItemDelegate::rememberError(const MVThemeItemWdg& widget) const
{
    if (widget.getItem() && widget.shownError() != eDownLoadError_None)
        m_errors.insert(widget.getItem()->m_qsGUID, widget.shownError());
}

QWidget* MVResourceItemDelegate::createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                                              const QModelIndex& index) const
{
    if (!index.isValid())
        return nullptr;
    if (MVThemeItemWdg* hidden = hiddenWidget(index)) {
        hidden->setDeletedAfterDownload(false);
        return hidden;
    }
    const QString guid = index.data(UIItemRole_GUID).toString();
    MVThemeItemWdg* const widget = createItemWidget(parent, guid);
    if (!widget)
        return QStyledItemDelegate::createEditor(parent, option, index);
    connectWidget(widget, guid);
    connect(widget, &QObject::destroyed, this,
            [this, guid, row = sourceRow(index)](QObject* dead) { forgetWidget(dead, guid, row); });
    widget->setListviewCurSel(&m_pCurSel);
    writeRowWidget(index, widget);
    adoptSelection(widget);
    if (m_errors.contains(guid))
        widget->showError(m_errors.take(guid));
    emit cellCreated(widget);
    return widget;
}

void MVResourceItemDelegate::connectWidget(const MVThemeItemWdg* widget, const QString& guid) const
{
    connect(widget, &MVThemeItemWdg::sigThemeItemClicked, this,
            &MVResourceItemDelegate::sigThemeItemClicked);
    connect(widget, &MVThemeItemWdg::contextMenuWanted, this,
            &MVResourceItemDelegate::contextMenuWanted);
    connect(widget, &MVThemeItemWdg::previewRequested, this,
            &MVResourceItemDelegate::previewRequested);
    connect(widget, &MVThemeItemWdg::progressed, this,
            [this, guid](int percent) { emit progressed(guid, percent); });
    connect(widget, &MVThemeItemWdg::errorChanged, this, [this, widget] {
        if (widget->isDeletedAfterDownload()) // its row has no cell
            rememberError(*widget);
    });
}

MVThemeItemWdg* MVResourceItemDelegate::createItemWidget(QWidget* parent, const QString& guid) const
{
    const bool isMore = QUuid(guid).isNull();
    SCfg_Item* const item =
        isMore ? nullptr : MVThemeMgr::init()->findItemByIDFromDisplay(kindShownBy(m_eType), guid);
    if (!item && !(isMore && m_eType == UIItem_Themes))
        return nullptr;
    MVThemeItemWdg* const widget =
        hasFilterCells(m_eType) ? new FiterItemWdg(parent) : new MVThemeItemWdg(parent);
    widget->setItem(item);
    return widget;
}

void MVResourceItemDelegate::destroyEditor(QWidget* editor, const QModelIndex& index) const
{
    Q_UNUSED(index)
    auto* widget = qobject_cast<MVThemeItemWdg*>(editor);
    if (widget && widget->isDownloading()) {
        widget->setDeletedAfterDownload(true);
        return;
    }
    if (widget) {
        rememberSelection(widget);
        rememberError(*widget);
        widget->releaseItem();
    }
    editor->deleteLater();
}

/// The row of the selected widget may reappear with another widget.
void MVResourceItemDelegate::rememberSelection(const MVThemeItemWdg* widget) const
{
    if (widget != m_pCurSel)
        return;
    m_pCurSel = nullptr;
    const SCfg_Item* const item = widget->getItem();
    const bool isChecked = widget->property("IsChecked").toBool();
    m_qsHiddenSelection = item && isChecked ? item->m_qsGUID : QString();
}

void MVResourceItemDelegate::adoptSelection(MVThemeItemWdg* widget) const
{
    const SCfg_Item* const item = widget->getItem();
    if (!item)
        return;
    // A widget hidden by a filter may not be deleted yet.
    const auto* selected = qobject_cast<MVThemeItemWdg*>(m_pCurSel);
    const bool isSelected = selected && selected->getItem()
        && selected->getItem()->m_qsGUID == item->m_qsGUID
        && selected->property("IsChecked").toBool();
    const bool wasSelected = !m_pCurSel && m_qsHiddenSelection == item->m_qsGUID;
    if (!isSelected && !wasSelected)
        return;
    m_qsHiddenSelection.clear();
    widget->setSel(widget);
}

void MVResourceItemDelegate::forgetWidget(QObject* widget, const QString& guid,
                                          const QPersistentModelIndex& row) const
{
    if (widget == m_pCurSel) {
        m_pCurSel = nullptr;
        const bool isChecked = widget->property("IsChecked").toBool();
        m_qsHiddenSelection = row.isValid() && isChecked ? guid : QString();
    }
    if (row.isValid() && row.data(UIItemRole_Widget).value<QObject*>() == widget)
        writeRowWidget(row, nullptr);
}

void MVResourceItemDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                                   const QModelIndex& index) const
{
    QStyledItemDelegate::paint(painter, option, index);
}

void MVResourceItemDelegate::setEditorData(QWidget* editor, const QModelIndex& index) const
{
    QStyledItemDelegate::setEditorData(editor, index);
}

QSize MVResourceItemDelegate::sizeHint(const QStyleOptionViewItem& option,
                                       const QModelIndex& index) const
{
    Q_UNUSED(option)
    Q_UNUSED(index)
    return {m_itemSize.width() + m_nPaddingLeft + m_nPaddingRight,
            m_itemSize.height() + m_nPaddingTop + m_nPaddingBottom};
}

/// Cells have no data to commit: Escape and focus loss keep their usual meaning.
bool MVResourceItemDelegate::eventFilter(QObject* editor, QEvent* event)
{
    if (qobject_cast<MVThemeItemWdg*>(editor))
        return false;
    return QStyledItemDelegate::eventFilter(editor, event);
}

bool MVResourceItemDelegate::editorEvent(QEvent* event, QAbstractItemModel* model,
                                         const QStyleOptionViewItem& option,
                                         const QModelIndex& index)
{
    return QStyledItemDelegate::editorEvent(event, model, option, index);
}
