// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "browser/EApplyOn.h"
#include "browser/EUIItemType.h"
#include "browser/MvBrowserExport.h"

#include <QListView>
#include <QMap>
#include <QRect>
#include <QSet>
#include <QSize>
#include <QString>
#include <QStringList>
#include <QUuid>

#include <memory>
#include <optional>

class CellFocusMark;
class CellPool;
class ListAnnouncer;
class MVResourceItemDelegate;
class MVThemeItemWdg;
class MVThemeSortFilterProxyModel;
class QStandardItem;
class QStandardItemModel;
class ShownItems;
struct SCellState;
struct SCfg_Item;
struct SListFilter;

/// A scrolling grid of live cells that shows one kind of the catalogue's resources.
///
/// Construct it, call setUIItemType() once, then initData(), and reapplyFilter() whenever the
/// filter changes. The cells point into the catalogue: call clear() before MVThemeMgr::load(true)
/// or MVThemeMgr::clear(), and initData() again afterwards. Destroying the view stops the downloads
/// that its cells have started; do that before the process ends. GUI thread only.
///
/// Keyboard: arrows move between the cells, Enter applies or downloads the current one (or opens
/// the target of "More>>"), Escape cancels its download, F adds it to the favourites or removes it,
/// Space plays or stops its preview. An outline shows the current cell while the keyboard is in
/// use.
///
/// Screen readers hear each row as one text of name, state and position, whether it has a cell or
/// not ("White Christmas, festivals, favourite, not downloaded, 250 kB, 3 of 15"), and offer
/// applying, favourite, details, and cancelling a download, whose progress and end they announce.
///
/// With HostSettings::showWithoutPreviews, which a list reads when it is created, pictures that
/// arrive later replace the placeholders of their items, and the preview run fetches those of the
/// visible items first.
///
/// By default every row that passes the filter has a cell, which takes about 2 ms and 170 KB.
/// setCellsOnDemand() limits the cells to what is visible.
///
/// EUIItemRole lists the data of the rows.
class MVBROWSER_EXPORT mvThemelistview : public QListView
{
    Q_OBJECT

public:
    /// Creates an empty list without a type, see setUIItemType().
    explicit mvThemelistview(QWidget* parent = nullptr);
    ~mvThemelistview() override;

    /// Sets what the list shows, and reads the size of its cells from the skin. Call it once,
    /// before any data.
    void setUIItemType(EUIItemType type);
    /// Returns what the list shows; UIItem_None at first.
    EUIItemType uiItemType() const { return m_eType; }

    /// Sets whether only visible rows, and those of one page around them, have a cell. At first
    /// HostSettings::cellsOnDemand decides. A row that leaves that range gives its cell back,
    /// unless the cell downloads, plays, is the applied or current one, or has the focus. All
    /// operations behave as if every row had its cell: one that needs a cell creates it. May be
    /// changed at any time.
    void setCellsOnDemand(bool onDemand);
    /// Returns whether only visible rows, and those near them, have a cell.
    bool hasCellsOnDemand() const { return m_pPool != nullptr; }

    /// Sets which mouse action applies an item or downloads it; a single click at first. Enter and
    /// the cell's download button do so in any case. May be changed at any time.
    void setApplyOn(EApplyOn action);
    /// Returns which mouse action applies an item.
    EApplyOn applyOn() const { return m_eApplyOn; }
    /// Sets whether cells show by marks which items are on disk, missing, outdated, new, or failed
    /// to download, and a cross on the ring of a download while the mouse is over the cell; false
    /// at first. May be changed at any time.
    void setMarksShown(bool shown);
    /// Returns whether cells show marks.
    bool areMarksShown() const { return m_bMarks; }
    /// Updates the marks after files have come or gone by other means than downloads of cells.
    void updateMarks();
    /// Acts like Enter on a row of the displayed model: applies or downloads its item, or opens the
    /// target of "More>>". An invalid index does nothing.
    void activate(const QModelIndex& shownRow);
    /// Does so with the current row, for a host's button.
    void applyCurrent();
    /// @name For a host's menu, with an item of the list by exact GUID; others do nothing
    /// @{

    /// Adds the item to the favourites or removes it, if it is on disk and shown.
    void toggleFavourite(const QString& guid);
    /// Cancels the item's download without waiting.
    void cancelDownload(const QString& guid);
    /// @}

    /// Appends all items of the catalogue's list, and "More>>" to the themes if the product
    /// parameter "url_slidershow" sets its target. The arguments are not used.
    void initData(const QUuid&, bool);
    /// Appends an item, which must be in the catalogue, and opens its cell; with cells on demand
    /// only if it is visible. For many items use the catalogue's list and initData(), which lays
    /// out the cells once.
    void addItem(const SCfg_Item& item);
    /// Returns the size and padding (top, right, bottom, left in x, y, width, height) that the skin
    /// gives this list's cells; a list without a type leaves both unchanged.
    void getItemSIze(QSize& size, QRect& padding);
    /// Applies the skin's cell size after a change of skin.
    void updateItemSize();

    /// Shows the items of a theme type (see MVThemeSortFilterProxyModel) whose names contain a
    /// match of `text`, the pattern of a NamePattern that ignores case.
    void reapplyFilter(int themeType, QString text);
    /// Shows the items that pass `filter`, in its order, instead of what reapplyFilter() has set.
    /// Call it again after favourites, or the items of setUpdatable() and setNew() have changed:
    /// rows neither disappear nor move because of these. A filter or an order by files shows at
    /// once what is known of them, never waits for the disk, and follows it: see filesFollowed().
    void applyFilter(const SListFilter& filter);
    /// Returns whether the filter or its order depends on files that have not been looked at yet.
    bool isLookingAtFiles() const;
    /// Opens the cells that are missing: those of all rows that pass the filter, or, with cells on
    /// demand, of the visible ones.
    void updateItemState();

    /// @name Facts that only the host knows, by GUID
    /// They apply to items that come later, too, such as by a reload.
    /// @{

    /// Sets the items on disk for which an update is available.
    void setUpdatable(const QSet<QString>& guids);
    /// Sets the items that are new since the user's last visit.
    void setNew(const QSet<QString>& guids);
    /// @}
    /// Returns what the list knows of an item, by exact GUID, whether it has a cell or not; the
    /// default state for an item that is not in the list. Accesses the disk.
    SCellState stateOf(const QString& guid) const;

    /// @name A reload of the catalogue
    /// @{

    /// Removes all rows, as clear() does, and remembers filter, scroll position, current cell,
    /// applied item and the stopped downloads until refill().
    void release();
    /// Appends the catalogue's current items and restores what release() remembered: downloads
    /// restart, the filter applies, the applied item is marked. Items that the catalogue no longer
    /// contains are skipped.
    void refill();
    /// @}

    /// Removes all rows. Stops the cells' downloads and waits for them, up to 200 ms each.
    void clear();
    /// Locates the thumbnail of the first cell again.
    void resetItemData();
    /// Decodes the thumbnail of the first cell again.
    void adjustItem();

    /// Returns the existing cells of items, including those that a filter hides while they
    /// download.
    QVector<MVThemeItemWdg*> cells() const;
    /// Returns the cell of an item by exact GUID; null if a filter hides it or there is no such
    /// item. With cells on demand it is created if necessary, and exists at least until control
    /// returns to the event loop.
    MVThemeItemWdg* cell(const QString& guid) const;
    /// Returns an item's row in the displayed model; invalid if a filter hides it.
    QModelIndex shownRow(const QString& guid) const;

    /// Returns whether any cell is downloading.
    bool isDownloading() const;
    /// Cancels all downloads without waiting.
    void cancelDownloads();

    /// Returns the GUID of the applied item, even while a filter hides it; empty if there is none.
    QString appliedItem() const;
    /// Marks an item that was applied elsewhere as the applied one, without emitting a signal; a
    /// hidden one gets its mark when it is shown. An empty GUID clears the mark.
    void setAppliedItem(const QString& guid);

    /// Removes the selected look from the selected item.
    void onClearSelect();
    /// Selects the item with this GUID, ignoring case, and emits sigThemeItemClicked(). Does
    /// nothing if there is no such item.
    void selFilterItemByGUID(const QUuid& uuid);
    /// Selects the item with the exact GUID of `item`; null does nothing.
    void selThemeItem(const SCfg_Item* item);

signals:
    /// The user has applied an item, or one of the operations above has selected it.
    void sigThemeItemClicked(SCfg_Item*);
    /// The user has requested an item's context menu, with the right mouse button or the menu key;
    /// only with HostSettings::leftButtonOnly. The item has become the current one, and is not
    /// applied. The position is in screen coordinates.
    void sigContextMenuRequested(const QString& guid, const QPoint& globalPos);
    /// The user has clicked an item once, which has become the current one; only with
    /// EApplyOn::DoubleClickOrEnter.
    void sigPreviewRequested(const QString& guid);
    /// Rows have appeared, gone or moved because files have been looked at, downloaded or removed;
    /// current row and scroll position are as before. Also emitted when no file is left to be
    /// looked at. Only with a filter or an order by files, and from the event loop.
    void filesFollowed();
    /// The user of a screen reader has asked for an item's details.
    void detailsRequested(const QString& guid);

protected:
    /// Scrolls one cell up or down, however far the wheel was turned.
    void wheelEvent(QWheelEvent* event) override;
    /// Handles the keys that act on the current cell.
    void keyPressEvent(QKeyEvent* event) override;
    /// Hides the outline of the current cell.
    void mousePressEvent(QMouseEvent* event) override;
    /// Turns the menu key into contextMenuWanted() for the current cell.
    void contextMenuEvent(QContextMenuEvent* event) override;
    /// Outlines the current cell if the keyboard has brought the focus.
    void focusInEvent(QFocusEvent* event) override;
    /// Opens the cells of the visible rows.
    void showEvent(QShowEvent* event) override;
    /// Withdraws the rows from those whose previews come first.
    void hideEvent(QHideEvent* event) override;
    /// Hides the outline of the current cell.
    void focusOutEvent(QFocusEvent* event) override;
    /// Translates "More>>" after a change of language.
    void changeEvent(QEvent* event) override;
    /// Opens the cells of the rows that scroll into view.
    void scrollContentsBy(int dx, int dy) override;
    /// Moves the outline to the new current cell.
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
    /// Opens the cell of the row before Qt looks for it.
    bool edit(const QModelIndex& index, EditTrigger trigger, QEvent* event) override;

protected slots:
    /// Opens the cells of the rows that a new layout brings into view.
    void updateGeometries() override;
    /// Schedules one layout for any number of new rows.
    void rowsInserted(const QModelIndex& parent, int start, int end) override;

private:
    struct Kept
    {
        int themeType = 0;
        QString text;
        std::shared_ptr<const SListFilter> filter; // null: themeType and text apply
        QString current;
        QString applied;
        QStringList downloads;
        QString lastChoice; // the download of the user's last choice
        int scroll = 0;
    };

    /// The row at the top of the viewport and its offset.
    struct Place
    {
        QString guid;
        int top = 0;
        int scroll = 0;
    };

    static const QVector<SCfg_Item>& getItems(EUIItemType type);
    void restartDownloads(const Kept& kept);
    void restoreFilter(const Kept& kept);
    void makeCurrent(const QString& guid);
    void rememberPlace();
    void showFollowedFiles();
    void setUpView();
    void readItemSize();
    bool actOnCurrentCell(int key);
    void nameMoreRow();
    void showFocus(bool byKeyboard);
    void placeFocusMark();
    void findCurrent();
    static QStandardItem* newRow(const QString& guid, int themeType, const QString& name);
    QStandardItem* newItemRow(const SCfg_Item& item);
    void markRows(int role, const QSet<QString>& guids);
    void setUpCells();
    void setUpCell(MVThemeItemWdg* cell);
    void requestContextMenu(const SCfg_Item* item, const QPoint& globalPos);
    void ShowThemeSubWdgByOptTag(const QModelIndex& index);
    void openAllCells();
    void openReappearedDownloads();
    void updatePool();
    void noteShownItems();
    void showArrivedPicture(const QString& guid);
    bool isCellKept(const QModelIndex& index) const;
    void giveBack(const QModelIndex& index);
    MVThemeItemWdg* itemWidget(int row) const;
    static MVThemeItemWdg* itemWidget(const QModelIndex& index);
    MVThemeItemWdg* neededWidget(int row) const;
    MVThemeItemWdg* currentWidget() const;
    MVThemeItemWdg* firstItemWidget() const;
    int rowCount() const;
    void selectItem(const QString& guid, Qt::CaseSensitivity cs);

    MVResourceItemDelegate* m_pDelegate = nullptr;
    ListAnnouncer* m_pAnnouncer;       // a child
    std::unique_ptr<CellPool> m_pPool; // null: every row has its cell
    std::unique_ptr<QStandardItemModel> m_pModel;
    MVThemeSortFilterProxyModel* m_pProxy = nullptr;
    EUIItemType m_eType = UIItem_None;
    EApplyOn m_eApplyOn = EApplyOn::SingleClick;
    bool m_bMarks = false;
    QSize m_itemSize;
    QRect m_itemPadding;
    CellFocusMark* m_pFocusMark;
    bool m_bKeyboard = false;               // the keyboard was used after the mouse
    QMap<QUuid, QStandardItem*> m_mapItems; // the items belong to the model
    QSet<QString> m_updatable;              // GUIDs
    QSet<QString> m_new;                    // GUIDs
    std::unique_ptr<ShownItems> m_pShown;   // null unless items are shown without previews
    std::optional<Kept> m_kept;             // from release() to refill()
    Place m_place;                          // while the rows follow files
};
