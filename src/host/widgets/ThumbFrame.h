#pragma once

#include "host/widgets/MvHostUiExport.h"

#include <QFrame>
#include <QPixmap>
#include <QString>

/// A frame that paints an image file, scaled smoothly into its contents, keeping its aspect ratio.
///
/// The file is decoded when the frame is first painted, and then once per size and screen scale: a
/// hidden frame costs nothing, a repaint reads no file. An image that cannot be decoded, or has
/// more than PictureFormat::maxPixels, leaves the frame empty and is not retried at the same size.
/// GUI thread only.
class MVHOSTUI_EXPORT ThumbFrame : public QFrame
{
    Q_OBJECT

public:
    explicit ThumbFrame(QWidget* parent = nullptr);

    /// Sets the image file to show; setting the same path changes nothing, see setIsEmpty().
    void setImagePath(const QString& path);
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
    void paintEvent(QPaintEvent* event) override;

private:
    void decode(const QSize& pixels, qreal ratio);
    void paintPlaceholder();

    QString m_path;
    QPixmap m_pixmap;
    QSize m_decodedFor; // available device pixels; invalid: not tried yet
    qreal m_decodedRatio = 0.0;
    bool m_hasPlaceholder = false;
};
