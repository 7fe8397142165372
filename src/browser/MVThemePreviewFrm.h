// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "browser/MvBrowserExport.h"

#include <QFrame>
#include <QMovie>
#include <QString>

#include <memory>

class QEvent;
struct SCfg_Item;

namespace Ui {
class MVThemePreviewFrm;
}

/// The picture of a list cell: the item's thumbnail, or its GIF preview while that plays.
///
/// Only one preview in the whole application plays at a time; starting one stops the other. Video
/// filters and background materials have no animation. GUI thread only.
class MVBROWSER_EXPORT MVThemePreviewFrm : public QFrame
{
    Q_OBJECT

public:
    /// Creates a frame that shows nothing until setItemData().
    explicit MVThemePreviewFrm(QWidget* parent);
    ~MVThemePreviewFrm() override;

    /// Shows the thumbnail of `item`, which belongs to the catalogue and must outlive its use here,
    /// and sets its GIF as the one to play.
    void setItemData(const SCfg_Item* item);
    /// Sets the GIF to play. If the file does not exist, the host's placeholder is used:
    /// "testskin/Simple.gif" in TzResourceMgr::testOutputDir(). Above a screen scale of 1.25 the
    /// animation is enlarged by that factor. An animation of more than PictureFormat::maxPixels is
    /// ignored.
    void setMoviePath(QString path);

    /// Plays from the beginning; a file that is not an animation keeps the thumbnail and is logged.
    void startPlayGif();
    /// Returns to the thumbnail and closes the file.
    void stopPlayGif();
    /// Returns whether the preview plays.
    bool isPlaying() const;

    /// Decodes the thumbnail again for the current size, immediately or, with
    /// HostSettings::decodeInBackground, as soon as a thread has done it.
    void adjustItem();
    /// Locates the item's thumbnail again, after a download, and paints it, immediately or as soon
    /// as a thread has decoded it.
    void resetItemData();
    /// Locates thumbnail and preview again, after they have been fetched. A playing preview goes
    /// on.
    void showArrivedPictures();

protected:
    /// Does what QFrame does.
    bool event(QEvent* event) override;
    /// Stops playing, since nobody sees the frame.
    void hideEvent(QHideEvent* event) override;

private:
    bool isAnimated() const;
    bool isPlayable();
    void closeMovieFile();

    std::unique_ptr<Ui::MVThemePreviewFrm> m_pUi;
    const SCfg_Item* m_pItem = nullptr;
    QMovie m_movie;
    QString m_qsMoviePath;

    static QMovie* s_pMovie; // the movie of the frame that played last; null once that is destroyed
};
