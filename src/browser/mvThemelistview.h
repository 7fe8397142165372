#pragma once

#include "browser/EUIItemType.h"
#include "browser/MvBrowserExport.h"

#include <QListView>
#include <QMap>
#include <QRect>
#include <QSize>
#include <QStringList>
#include <QUuid>

#include <memory>
#include <optional>

class CellFocusMark;
class MVResourceItemDelegate;
class MVThemeItemWdg;
class MVThemeSortFilterProxyModel;
class QStandardItem;
class QStandardItemModel;
struct SCfg_Item;

/// A scrolling grid of live cells that shows one kind of the catalogue's resources.
///
/// Construct it, call setUIItemType() once, then initData(); reapplyFilter() as often as the user
/// likes. The cells point into the catalogue: call clear() before MVThemeMgr::load(true) or
/// MVThemeMgr::clear(), and initData() again afterwards. Destroying the view stops the downloads
/// that its cells have started; do that before the process ends. GUI thread only.
///
/// The keyboard: arrows move between the cells, Enter applies or downloads the current one (or
/// opens what "More>>" stands for), Escape cancels its download, F makes it a favourite or no
/// longer, Space plays or stops its preview. An outline shows the current cell while the keyboard
/// is used. Screen readers are told the names.
///
/// The rows carry the data that EUIItemRole names.
class MVBROWSER_EXPORT mvThemelistview : public QListView
{
    Q_OBJECT

public:
    explicit mvThemelistview(QWidget* parent = nullptr);
    ~mvThemelistview() override;

    /// Sets what the list shows, and reads the size of its cells from the skin. Call it once,
    /// before any data.
    void setUIItemType(EUIItemType type);
    /// Appends all items of the catalogue's list, and "More>>" to the themes if the product
    /// parameter "url_slidershow" says where that leads. The arguments are not used.
    void initData(const QUuid&, bool);
    /// Appends an item, which must stand in the catalogue, and opens its cell; many items belong
    /// into the catalogue's list and initData(), which lays the cells out once.
    void addItem(const SCfg_Item& item);
    /// The size and padding (top, right, bottom, left in x, y, width, height) that the skin gives
    /// to this list's cells; a list of no type leaves both as they are.
    void getItemSIze(QSize& size, QRect& padding);
    /// Gives the cells the size that the skin has now, after it was changed.
    void updateItemSize();

    /// Shows the items of a theme type (see MVThemeSortFilterProxyModel) whose names contain a
    /// match of `text`, a QRegExp pattern without regard to case.
    void reapplyFilter(int themeType, QString text);
    /// Opens the cells of all rows that are shown.
    void updateItemState();

    /// @name A reload of the catalogue
    /// @{
    /// Removes all rows, as clear() does, and remembers filter, place, current cell, applied item
    /// and the downloads that it stops, until refill().
    void release();
    /// Appends the items of the catalogue as it is now, and brings back what release() remembered:
    /// downloads start again, the filter applies, the applied item has its mark. What the catalogue
    /// does not hold any more is left out.
    void refill();
    /// @}

    /// Removes all rows. Stops the cells' downloads and waits for them, up to a second each.
    void clear();
    /// Looks anew where the thumbnail of the first cell lies.
    void resetItemData();
    /// Decodes the thumbnail of the first cell anew.
    void adjustItem();

    /// Returns the cells of items, those included that a filter hides and that still download.
    QVector<MVThemeItemWdg*> cells() const;
    /// Returns the cell of an item, GUIDs exactly compared; null for one that has none now.
    MVThemeItemWdg* cell(const QString& guid) const;
    /// Returns the row, of the model that the list shows, of an item; invalid for one that a filter
    /// hides.
    QModelIndex shownRow(const QString& guid) const;

    /// Returns whether a cell downloads.
    bool isDownloading() const;
    /// Cancels all downloads and does not wait.
    void cancelDownloads();

    /// Returns the GUID of the applied item, also while a filter hides it; empty if there is none.
    QString appliedItem() const;
    /// Marks an item as the applied one and emits nothing, for an item that was applied elsewhere;
    /// one that a filter hides gets its mark when it is shown. An empty GUID marks none.
    void setAppliedItem(const QString& guid);

    /// Takes the look of the selected item off it.
    void onClearSelect();
    /// Selects the item with this GUID, in any case, and emits sigThemeItemClicked(). Without
    /// such an item nothing changes.
    void selFilterItemByGUID(const QUuid& uuid);
    /// The same with the GUID of `item`, exactly compared; null does nothing.
    void selThemeItem(const SCfg_Item* item);

signals:
    /// An item was applied by the user, or selected by one of the operations above.
    void sigThemeItemClicked(SCfg_Item*);
    /// The user asks for the context menu of an item, by the right mouse button or the menu key;
    /// only with HostSettings::leftButtonOnly. The position is the screen's.
    void contextMenuWanted(SCfg_Item* item, const QPoint& globalPos);

protected:
    /// One cell up or down, however far the wheel was turned.
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void changeEvent(QEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;

protected slots:
    void updateGeometries() override;

private:
    struct Kept
    {
        int themeType = 0;
        QString text;
        QString current;
        QString applied;
        QStringList downloads;
        QString lastChoice; // the download that the user has chosen nothing else since
        int scroll = 0;
    };

    static const QVector<SCfg_Item>& getItems(EUIItemType type);
    void restartDownloads(const Kept& kept);
    void makeCurrent(const QString& guid);
    void setUpView();
    void readItemSize();
    bool actOnCurrentCell(int key);
    void nameMoreRow();
    void showFocus(bool byKeyboard);
    void placeFocusMark();
    void appendRow(const QString& guid, int themeType, const QString& name);
    void appendItem(const SCfg_Item& item);
    void ShowThemeSubWdgByOptTag(const QModelIndex& index);
    MVThemeItemWdg* itemWidget(int row) const;
    static MVThemeItemWdg* itemWidget(const QModelIndex& index);
    MVThemeItemWdg* firstItemWidget() const;
    int rowCount() const;
    void selectItem(const QString& guid, Qt::CaseSensitivity cs);

    MVResourceItemDelegate* m_pDelegate = nullptr;
    std::unique_ptr<QStandardItemModel> m_pModel;
    MVThemeSortFilterProxyModel* m_pProxy = nullptr;
    EUIItemType m_eType = UIItem_None;
    QSize m_itemSize;
    QRect m_itemPadding;
    CellFocusMark* m_pFocusMark;
    bool m_bKeyboard = false;               // the keyboard was used last, not the mouse
    QMap<QUuid, QStandardItem*> m_mapItems; // the items belong to the model
    std::optional<Kept> m_kept;             // from release() to refill()
};
