// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "browser/MvBrowserExport.h"
#include "download/EMVThemeDownLoadError.h"

#include <QColor>
#include <QFrame>
#include <QImage>

#include <functional>
#include <memory>

class QToolButton;
class QVBoxLayout;
struct SCfg_Item;

namespace Ui {
class MVThemeItemSubwdgt_Preview;
}

/// The face of one catalogue item in a list: preview, hover buttons, a download's progress ring,
/// the error text of a failed one, the mark of the applied item, or the "More>>" cell.
///
/// Its owner passes on the item, the mouse's entering and leaving, progress and results; the face
/// asks the catalogue which files are missing and whether the item is a favourite. The item belongs
/// to the catalogue and must outlive its use by this widget. GUI thread only.
///
/// The style sheet sets the appearance: by object names, by the properties below (qproperty-...),
/// and by "IsChecked" on the name label, which is true while the item is the applied one.
class MVBROWSER_EXPORT MVThemeItemSubwdgt_Preview : public QFrame
{
    Q_OBJECT
    /// The picture uncovered by progress, clockwise from twelve o'clock, stretched over the whole
    /// ring.
    Q_PROPERTY(QImage progressImage READ progressImage WRITE setProgressImage)
    /// The picture under the ring.
    Q_PROPERTY(QImage progressMask READ progressMask WRITE setProgressMask)
    /// Colour of the percentage text; invalid by default, which paints black.
    Q_PROPERTY(QColor progressColor READ progressColor WRITE setProgressColor)
    /// Point size of that text before screen scaling; the widget's own font if 0 or less.
    Q_PROPERTY(int progressFontSize READ progressFontSize WRITE setProgressFontSize)
    /// Distance of the "Current" mark from the upper edge, in pixels.
    Q_PROPERTY(int nMarginTop_lblCur READ marginTopCur WRITE setMarginTopCur)
    /// Distance of the error text from the upper edge, in pixels.
    Q_PROPERTY(int nMarginTop_frmNetError READ marginTopNetError WRITE setMarginTopNetError)

public:
    /// Takes the item of the cell whose button was used.
    using ItemCallback = std::function<void(SCfg_Item*)>;

    /// Creates a face that shows nothing until setItem().
    explicit MVThemeItemSubwdgt_Preview(QWidget* parent);
    ~MVThemeItemSubwdgt_Preview() override;

    /// @name Host callbacks
    /// Shared by all cells and called on the GUI thread; empty ones are skipped. They receive the
    /// cell's item, or null from the "More>>" cell.
    /// @{

    /// Sets the callback invoked after the user has added an item to the favourites or removed it.
    static void setCbBtnCollect(ItemCallback callback);
    /// Sets the callback invoked when a download is requested, after sigDownLoad().
    static void setCbBtnDownload(ItemCallback callback);
    /// Sets the callback invoked when the user activates "More>>".
    static void setCbBtnMore(ItemCallback callback);
    /// @}

    /// Shows an item; null makes this the "More>>" cell.
    void setItem(SCfg_Item* item);
    /// Shows an item after its download has ended and offers to fetch what is still missing.
    void setItemDownload(SCfg_Item* item);
    /// Releases the item, which may be destroyed afterwards; the displayed content stays.
    void releaseItem();
    /// Shows or hides the mark of the applied item.
    void setCurText(bool cur);
    /// Shows why a download failed; success (5) hides the text.
    void setDownLoadErrorText(EMVThemeDownLoadError e);
    /// Returns the error that setDownLoadErrorText() has set last; success (5) at first.
    EMVThemeDownLoadError downLoadError() const { return m_eDownloadErr; }
    /// Sets the percentage; the ring shows 0 to 100, the text any value. Fractions are truncated,
    /// and NaN and infinity are ignored.
    void onProgress(double p);
    double progress() const { return m_dProgress; }
    /// Sets whether the ring shows a cross instead of the percentage while the mouse is over the
    /// cell; false by default.
    void setCrossOnHover(bool shown);
    /// Starts the download as the download button does; ignored until the current one ends.
    void startDownLoad();
    /// Handles the mouse entering the cell: shows the buttons that apply to the item.
    void doEvent_Enter();
    /// Handles the mouse leaving the cell; a favourite keeps its heart.
    void doEvent_Leave();
    /// Returns the download button, owned by this widget.
    QToolButton* getBtnDownload() const;

    /// @name Picture, see MVThemePreviewFrm
    /// @{

    /// Decodes the thumbnail again for the current size.
    void adjustItem();
    /// Locates the item's thumbnail again and shows it.
    void resetItemData();
    /// Shows the item's pictures that have been fetched since setItem().
    void showArrivedPictures();
    /// Plays the animated preview from the beginning.
    void startPlayGif();
    /// Returns to the thumbnail.
    void stopPlayGif();
    /// Returns whether the animated preview plays.
    bool isPlaying() const;
    /// @}
    /// Returns whether this is the "More>>" cell.
    bool isMore() const;

    /// Returns the property of that name.
    QImage progressImage() const { return m_progressImage; }
    /// Sets the property progressImage.
    void setProgressImage(const QImage& image);
    /// Returns the property of that name.
    QImage progressMask() const { return m_progressMask; }
    /// Sets the property progressMask.
    void setProgressMask(const QImage& mask);
    /// Returns the property of that name.
    QColor progressColor() const { return m_progressColor; }
    /// Sets the property progressColor.
    void setProgressColor(const QColor& color);
    /// Returns the property of that name.
    int progressFontSize() const { return m_nProgressFontSize; }
    /// Sets the property progressFontSize.
    void setProgressFontSize(int pointSize);
    /// Returns the property nMarginTop_lblCur.
    int marginTopCur() const { return m_nMarginTopCur; }
    /// Sets the property nMarginTop_lblCur.
    void setMarginTopCur(int margin);
    /// Returns the property nMarginTop_frmNetError.
    int marginTopNetError() const { return m_nMarginTopNetError; }
    /// Sets the property nMarginTop_frmNetError.
    void setMarginTopNetError(int margin);

    /// Paints the ring over its label and turns a click on it into sigCancelDownLoad().
    bool eventFilter(QObject* obj, QEvent* event) override;

public slots:
    /// Adds the item to the favourites or removes it.
    void onBtnCollect();
    /// Shows the ring and requests the download with sigDownLoad(); ignored until the current one
    /// ends.
    void onBtnDownload();
    /// Tells the host that the user has activated "More>>".
    void onBtnMore();

signals:
    /// Declared for hosts; never emitted here.
    void sigCollect(SCfg_Item*);
    /// The item's files are wanted: the owner of this cell starts the download. Null in a cell
    /// without an item.
    void sigDownLoad(SCfg_Item*);
    /// The user has clicked the progress ring: the owner of this cell cancels the download.
    void sigCancelDownLoad();
    /// Declared for hosts; never emitted here.
    void sigBtnMore();
    /// Declared for hosts; never emitted here.
    void sigApplyTheme(SCfg_Item*);

protected:
    /// Translates the texts again after a change of language.
    void changeEvent(QEvent* event) override;
    /// Places the overlays for the new size.
    void resizeEvent(QResizeEvent* event) override;
    /// Places the overlays for the size at which the widget is shown.
    void showEvent(QShowEvent* event) override;

private:
    void createUI();
    void showItem(SCfg_Item* item, bool needed);
    bool isRingClick(const QEvent& event);
    void nameButtons();
    void createOverlay();
    void arrangeOverlay();
    void placeOverlay(int overlayWidth);
    void setHovered(bool hovered);
    void drawProgress(QPainter* p, const QRect& rect, int value) const;

    EMVThemeDownLoadError m_eDownloadErr;
    std::unique_ptr<Ui::MVThemeItemSubwdgt_Preview> m_pUi;
    std::unique_ptr<QVBoxLayout> m_pOverlay; // positions the overlays on the picture
    SCfg_Item* m_pItem = nullptr;
    double m_dProgress = 0.0;
    bool m_bCrossOnHover = false;
    bool m_bHovered = false;     // the mouse is over the cell
    bool m_bRingPressed = false; // the left button went down on the ring, not as a double click
    QImage m_progressImage;
    QImage m_progressMask;
    QColor m_progressColor;
    int m_nProgressFontSize = 9;
    int m_nMarginTopCur = 0;
    int m_nMarginTopNetError = 0;

    static ItemCallback m_cbBtnCollect;
    static ItemCallback m_cbBtnDownload;
    static ItemCallback m_cbBtnMore;
};
