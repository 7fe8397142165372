// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "browser/EUIItemType.h"
#include "browser/MvBrowserExport.h"
#include "download/EMVThemeDownLoadError.h"

#include <QHash>
#include <QMargins>
#include <QSize>
#include <QStyledItemDelegate>

class MVThemeItemWdg;
class QPersistentModelIndex;
struct SCfg_Item;

/// Sets the size of a resource list's cells and creates the live widget of each; paints no items
/// itself.
///
/// It also tracks the selected widget: every widget it creates gets the address of that member. The
/// model holds a row's widget under UIItemRole_Widget for as long as the widget exists. GUI thread
/// only.
class MVBROWSER_EXPORT MVResourceItemDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    /// Creates a delegate that shows nothing until setUIItemType().
    explicit MVResourceItemDelegate(QObject* parent);

    /// Sets what the list shows; UIItem_None at first.
    void setUIItemType(EUIItemType type) { m_eType = type; }
    /// Sets the size of an item in pixels, without padding.
    void setItemSize(const QSize& size) { m_itemSize = size; }
    /// Sets the pixels around an item. Negative values follow the short forms of style sheets:
    /// right and bottom then equal top, left equals right.
    void setItemPadding(const QMargins& m);

    /// Removes the selected look from the selected item, which remains selected.
    void onClearSelect();
    /// Returns the GUID of the selected item if it has the selected look, even while a filter hides
    /// it.
    QString selectedItem() const;
    /// Selects the item shown by `widget` without emitting a signal. If `widget` is null, the item
    /// with this GUID is selected once it gets a widget; an empty GUID selects none.
    void select(const QString& guid, MVThemeItemWdg* widget);
    /// Clears the selection; for use before all rows are removed.
    void forgetSelection();
    /// Clears the remembered errors; for use after that.
    void forgetErrors() { m_errors.clear(); }
    /// Returns the error of the last download of an item whose row has no cell; success (5) if
    /// there is none.
    EMVThemeDownLoadError rememberedError(const QString& guid) const;

    /// Returns a row's widget, owned by `parent`; Qt's default editor, a line edit, for a GUID that
    /// the catalogue does not know. A filtered-out cell that is still downloading is reused for its
    /// row.
    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                          const QModelIndex& index) const override;
    /// Deletes the widget after the current event; one that is downloading is hidden until it has
    /// finished.
    void destroyEditor(QWidget* editor, const QModelIndex& index) const override;
    /// Paints what Qt's delegate paints; the live widget covers it.
    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    /// Does what Qt's delegate does; a cell reads its item when it is created.
    void setEditorData(QWidget* editor, const QModelIndex& index) const override;
    /// Returns the item size with its padding, the same for every row.
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;

signals:
    /// A row has got its widget, which has no item in the "More>>" row.
    void cellCreated(MVThemeItemWdg* widget) const;
    /// The user has applied an item.
    void sigThemeItemClicked(SCfg_Item*);
    /// The user has clicked an item once; only with EApplyOn::DoubleClickOrEnter.
    void previewRequested(SCfg_Item* item);
    /// The progress of an item's download has reached another whole percentage.
    void progressed(const QString& guid, int percent) const;
    /// The user has requested an item's context menu.
    void contextMenuWanted(SCfg_Item* item, const QPoint& globalPos);

protected:
    /// Lets cells handle their own keys and focus: they have no data to commit.
    bool eventFilter(QObject* editor, QEvent* event) override;
    /// Does what Qt's delegate does.
    bool editorEvent(QEvent* event, QAbstractItemModel* model, const QStyleOptionViewItem& option,
                     const QModelIndex& index) override;

private:
    MVThemeItemWdg* createItemWidget(QWidget* parent, const QString& guid) const;
    void connectWidget(const MVThemeItemWdg* widget, const QString& guid) const;
    void adoptSelection(MVThemeItemWdg* widget) const;
    void rememberError(const MVThemeItemWdg& widget) const;
    void rememberSelection(const MVThemeItemWdg* widget) const;
    void forgetWidget(QObject* widget, const QString& guid, const QPersistentModelIndex& row) const;

    mutable QWidget* m_pCurSel = nullptr; // item widgets write their address here
    QSize m_itemSize;
    int m_nPaddingTop = 0;
    int m_nPaddingRight = 0;
    int m_nPaddingBottom = 0;
    int m_nPaddingLeft = 0;
    EUIItemType m_eType = UIItem_None;
    // GUID of the selected item while a filter hides it; empty otherwise
    mutable QString m_qsHiddenSelection;
    mutable QHash<QString, EMVThemeDownLoadError> m_errors; // by GUID, of rows without a cell
};
