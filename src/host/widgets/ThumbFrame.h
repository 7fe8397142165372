// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "host/widgets/MvHostUiExport.h"

#include <QFrame>
#include <QPixmap>
#include <QString>

#include <memory>

class PictureRequest;

/// A frame that paints an image file, scaled smoothly into its contents, keeping its aspect ratio.
///
/// The file is decoded when the frame is first painted, and then once per size and screen scale: a
/// hidden frame costs nothing, a repaint reads no file. An image that cannot be decoded, or has
/// more than PictureFormat::maxPixels, leaves the frame empty and is not retried at the same size.
///
/// With HostSettings::decodeInBackground that paint only requests the image from PictureLoader, and
/// the frame repaints itself when it has arrived. Until then it paints what it paints without an
/// image, or its previous image of the same path, scaled. An image that is still in QPixmapCache is
/// painted at once. GUI thread only.
class MVHOSTUI_EXPORT ThumbFrame : public QFrame
{
    Q_OBJECT

public:
    /// Creates an empty frame, see setImagePath().
    explicit ThumbFrame(QWidget* parent = nullptr);
    ~ThumbFrame() override;

    /// Sets the image file to show; setting the same path changes nothing, see setIsEmpty().
    void setImagePath(const QString& path);
    /// Returns the path of the image file.
    QString imagePath() const { return m_path; }

    /// Drops the decoded image if true; the next paint reads the file again, which ends that state.
    /// Use it when the file behind the path has changed. False does nothing.
    void setIsEmpty(bool empty);
    /// Returns whether there is currently no decoded image.
    bool isEmpty() const { return m_pixmap.isNull(); }

    /// Sets whether a symbol in the colour of the text is painted in place of a picture that is
    /// missing or cannot be decoded; false by default.
    void setPlaceholderShown(bool shown);

protected:
    /// Paints the picture, decoding or requesting it first if necessary.
    void paintEvent(QPaintEvent* event) override;
    /// Drops an image that has not arrived, since nobody sees the frame; the next paint requests it
    /// again.
    void hideEvent(QHideEvent* event) override;

private:
    void obtain(const QSize& pixels);
    void request(const QString& key);
    void dropRequest();
    void take(const QString& key, const QPixmap& picture);
    void paintPlaceholder();

    QString m_path;
    QPixmap m_pixmap;
    QPixmap m_previous; // painted until a request has ended
    std::shared_ptr<PictureRequest> m_pRequest;
    QSize m_obtainedFor;       // available device pixels; invalid: not tried yet
    bool m_isOutdated = false; // what has been read may no longer be in the file
    bool m_hasPlaceholder = false;
};
