#pragma once

#include "browser/EUIItemType.h"
#include "browser/MvBrowserExport.h"

#include <QMargins>
#include <QSize>
#include <QStyledItemDelegate>

class MVThemeItemWdg;
class QPersistentModelIndex;
struct SCfg_Item;

/// Sizes the cells of a resource list and builds the live widget of each; paints nothing of an
/// item itself.
///
/// It also keeps which widget is the selected one: every widget it makes gets the address of that
/// member. A row's widget stands in the model under UIItemRole_Widget for as long as it lives.
/// GUI thread only.
class MVBROWSER_EXPORT MVResourceItemDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    explicit MVResourceItemDelegate(QObject* parent);

    /// Sets what the list shows; UIItem_None at first.
    void setUIItemType(EUIItemType type) { m_eType = type; }
    /// Size of an item in pixels, without padding.
    void setItemSize(const QSize& size) { m_itemSize = size; }
    /// Pixels around an item. Negative ones mean what they mean in a style sheet's short forms:
    /// right and bottom are then like top, left is like right.
    void setItemPadding(const QMargins& m);

    /// Takes the look of the selected item off it; it stays the selected one.
    void onClearSelect();
    /// Returns the GUID of the selected item if it has its look, also while a filter hides it.
    QString selectedItem() const;
    /// Selects the item that `widget` shows, announcing nothing. Null: the item with this GUID is
    /// selected once it gets a widget; an empty GUID selects none.
    void select(const QString& guid, MVThemeItemWdg* widget);
    /// No item is the selected one any more; for when all rows go.
    void forgetSelection();

    /// The widget for a row, owned by `parent`; Qt's default editor, a line edit, for a GUID that
    /// the catalogue does not know. A cell that was filtered out and still downloads is given back
    /// to its row.
    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                          const QModelIndex& index) const override;
    /// Deletes the widget after the present event; one that downloads hides and ends that first.
    void destroyEditor(QWidget* editor, const QModelIndex& index) const override;
    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    void setEditorData(QWidget* editor, const QModelIndex& index) const override;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;

signals:
    /// The user has applied an item.
    void sigThemeItemClicked(SCfg_Item*);
    /// The user asks for an item's context menu.
    void contextMenuWanted(SCfg_Item* item, const QPoint& globalPos);

protected:
    bool eventFilter(QObject* editor, QEvent* event) override;
    bool editorEvent(QEvent* event, QAbstractItemModel* model, const QStyleOptionViewItem& option,
                     const QModelIndex& index) override;

private:
    MVThemeItemWdg* createItemWidget(QWidget* parent, const QString& guid) const;
    void adoptSelection(MVThemeItemWdg* widget) const;
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
};
