// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "browser/EApplyOn.h"
#include "browser/MvBrowserExport.h"
#include "browser/SCellState.h"
#include "download/SItemDownloadResult.h"

#include <QFrame>
#include <QPointer>

#include <functional>
#include <memory>

class CellMarks;
class MVThemeDownLoader;
struct SCfg_Item;

namespace Ui {
class MVThemeItemWdg;
}

/// One live cell of a resource list: turns the user's mouse into actions on one catalogue item.
///
/// Hovering plays the preview and shows the buttons. A click applies the item; if files are
/// missing, it downloads them first and applies the item when they have arrived, if the cell is
/// still visible. A click on the progress ring cancels the download. HostSettings::leftButtonOnly
/// and HostSettings::lastChoiceWins determine which mouse buttons count, and whether a download
/// still applies its item after the user has chosen another.
///
/// The item belongs to the catalogue and must outlive this widget, which keeps a plain pointer. A
/// running download belongs to this widget: destroying it cancels the download and waits for its
/// thread, up to 200 ms. GUI thread only.
class MVBROWSER_EXPORT MVThemeItemWdg : public QFrame
{
    Q_OBJECT

public:
    /// Takes the item of a cell.
    using ItemCallback = std::function<void(SCfg_Item*)>;
    /// Takes the item of a cell and the details of its failure.
    using FailureCallback = std::function<void(SCfg_Item*, const QString& errorText)>;
    /// Takes the item of a cell and the outcome of its download.
    using EndCallback = std::function<void(SCfg_Item*, const SItemDownloadResult&)>;

    /// Creates a cell that shows nothing until setItem().
    explicit MVThemeItemWdg(QWidget* parent);
    ~MVThemeItemWdg() override;

    /// @name Host callbacks
    /// Shared by all cells and called on the GUI thread; empty ones are skipped. A cell that is
    /// destroyed or cleared calls none: CellEvents reports the end of its download. A callback may
    /// clear or destroy the list that contains the cell, but must leave reloading the catalogue to
    /// a later event: another callback may get the same item.
    /// @{

    /// Called after an item was applied.
    static void setCbItemClicked(ItemCallback callback);
    /// Called after a download has ended, whatever its outcome.
    static void setCbItemDownloaded(ItemCallback callback);
    /// Called before that if files could not be fetched, with MVThemeDownLoader::errorText().
    static void setCbItemFailed(FailureCallback callback);
    /// Called before both, with the outcome: complete, failed with a cause, or cancelled.
    static void setCbItemEnded(EndCallback callback);
    /// @}

    /// Call it once. Null makes this the "More>>" cell, which ignores the mouse.
    void setItem(const SCfg_Item* item);
    /// Returns null in the "More>>" cell, and after tryStopDownloadThread().
    SCfg_Item* getItem() const { return m_pItem; }

    /// Sets the variable in which the list keeps its selected cell; `slot` must outlive this
    /// widget.
    void setListviewCurSel(QWidget** slot) { m_ppCurSel = slot; }
    /// Makes `w` the list's selected cell instead of the one before.
    void setSel(MVThemeItemWdg* w);
    /// Shows or hides the "Current" mark.
    void setCurText(bool cur);
    /// Returns whether the item is the list's applied one: the dynamic property "IsChecked", which
    /// the list sets and style sheets test.
    bool isChecked() const;

    /// Decodes the thumbnail again for the current size.
    void adjustItem();
    /// Locates the item's thumbnail again and shows it.
    void resetItemData();
    /// Shows the item's pictures that have been fetched since setItem(). A playing preview goes on.
    void showArrivedPictures();

    /// Applies the item, or starts its download. Only a visible cell applies.
    void doApplyTheme();
    /// Hides an error and starts the download of `item`, unless one is running. Ignores null.
    void onDownLoad(SCfg_Item* item);
    /// Handles the end of the cell's download: tells the host, and applies the item or shows the
    /// error.
    void onDownloadFinish(EMVThemeDownLoadError result);
    /// Declared for hosts; does nothing. CellEvents::favouriteToggled() reports the change.
    void onCollect(SCfg_Item* item);

    /// Sets which mouse action applies the item or downloads it; a single click at first.
    void setApplyOn(EApplyOn action) { m_eApplyOn = action; }
    /// Sets whether the ring of a download shows a cross while the mouse is over the cell; false at
    /// first. A click on the ring cancels in any case.
    void setCrossOnHover(bool shown);
    /// Shows marks on the picture for what `state` returns, which is queried while painting; an
    /// empty function removes them.
    void setMarks(std::function<SCellState()> state);
    /// Updates the marks, if there are any, after the state has changed.
    void updateMarks();
    /// Returns the progress of a running download, 0 to 100 percent.
    int percent() const;
    /// Returns how many bytes have arrived for a running download, see
    /// MVThemeDownLoader::receivedBytes(); 0 without one.
    qint64 receivedBytes() const;

    /// @name Keyboard actions
    /// @{

    /// Acts like a click: applies or downloads the item, or opens the target of "More>>".
    void activate();
    /// Adds the item to the favourites or removes it, if all its files are present.
    void toggleFavourite();
    /// Starts the animated preview, or stops it if it plays.
    void togglePreview();
    /// @}

    /// Sets whether hovering plays the previews, for all cells; true by default. Turn it off for
    /// people who want less motion: togglePreview() still plays.
    static void setPlayedByHover(bool played) { s_bPlayedByHover = played; }
    /// Returns what setPlayedByHover() has set.
    static bool isPlayedByHover() { return s_bPlayedByHover; }

    /// Returns whether the animated preview plays.
    bool isPlaying() const;
    /// Returns the error of the last download that the cell shows; success (5) if it shows none.
    EMVThemeDownLoadError shownError() const;
    /// Shows an error as that of the last download; success (5) hides it.
    void showError(EMVThemeDownLoadError error);

    /// Returns whether the cell downloads its item.
    bool isDownloading() const { return !m_pDownLoader.isNull(); }
    /// Cancels a running download without waiting; the cell then shows no error.
    void cancelDownload();
    /// Starts the download of missing files without recording a user's choice, for a list that
    /// resumes its downloads after a reload.
    void resumeDownload();
    /// Returns whether the user has chosen no other item of this kind since.
    bool isLastChoice() const;
    /// Stops a running download and waits for its thread; from then on the cell ignores the mouse.
    /// Does nothing without a running download.
    void tryStopDownloadThread();
    /// Releases the item, which may be destroyed before the cell, and ignores the mouse from then
    /// on; for a cell that has left its list and will be deleted.
    void releaseItem();
    /// Returns whether the widget deletes itself at the end of its download: a cell that was
    /// filtered out of the list finishes the download while hidden.
    bool isDeletedAfterDownload() const { return m_bDeletedAfterDownload; }
    /// Sets what isDeletedAfterDownload() returns.
    void setDeletedAfterDownload(bool deleted) { m_bDeletedAfterDownload = deleted; }

    /// Turns the mouse's events on the cell into its actions.
    bool eventFilter(QObject* watched, QEvent* event) override;

signals:
    /// The item was applied.
    void sigThemeItemClicked(SCfg_Item*);
    /// The user has clicked the item once; only with EApplyOn::DoubleClickOrEnter.
    void previewRequested(SCfg_Item* item);
    /// A download has ended, and shownError() tells how; before the item is applied.
    void errorChanged();
    /// The progress of the download has reached another whole percentage.
    void progressed(const QString& guid, int percent);
    /// The user has requested the item's context menu at this screen position; only with
    /// HostSettings::leftButtonOnly.
    void contextMenuWanted(SCfg_Item* item, const QPoint& globalPos);

private:
    void endDownload();
    void onProgress(double percent);
    void onClick(const QEvent& click);
    bool onDoubleClick(const QEvent& click);

    std::unique_ptr<Ui::MVThemeItemWdg> m_pUi;
    SCfg_Item* m_pItem = nullptr;
    QPointer<MVThemeDownLoader> m_pDownLoader; // deletes itself when its thread has finished
    QWidget** m_ppCurSel = nullptr;
    QPointer<CellMarks> m_pMarks; // a child of the face; null while no marks are shown
    EApplyOn m_eApplyOn = EApplyOn::SingleClick;
    bool m_bDoubleClicked = false; // the release of its second press follows
    bool m_bDeletedAfterDownload = false;
    quint64 m_nChoice = 0; // number of the user's choice of this item; 0: never chosen

    static ItemCallback m_cbItemClicked;
    static ItemCallback m_cbItemDownloaded;
    static FailureCallback m_cbItemFailed;
    static EndCallback m_cbItemEnded;
    static bool s_bPlayedByHover;
};
