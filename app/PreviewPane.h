// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QMovie>
#include <QPixmap>
#include <QWidget>

#include <memory>

class PictureRequest;

/// A large picture of an item: its animation or its thumbnail, at its own size or smaller, never
/// larger. Stills are decoded in the background. Space plays and stops the animation.
class PreviewPane : public QWidget
{
    Q_OBJECT

public:
    explicit PreviewPane(QWidget* parent);
    ~PreviewPane() override;

    /// Shows files by their paths. Without an animation it shows the thumbnail; without a
    /// thumbnail, an animation that is not playing shows its first frame; without either, nothing.
    /// A file that announces more than PictureFormat::maxPixels is ignored.
    void show(const QString& thumbnail, const QString& animation, bool play);
    void setPlaying(bool playing);
    bool isPlaying() const { return m_movie.state() == QMovie::Running; }

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;
    bool hasHeightForWidth() const override { return true; }
    int heightForWidth(int width) const override;

protected:
    void resizeEvent(QResizeEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    void requestStill();
    QRect placeOf(const QPixmap& picture) const;

    QString m_stillFile;
    QSize m_stillPixels; // as requested
    QPixmap m_still;
    std::shared_ptr<PictureRequest> m_request; // while the still is being decoded
    QMovie m_movie;
    bool m_animated = false;
    bool m_hasFrame = false; // until then the movie's picture is that of the previous file
};
