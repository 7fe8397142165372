// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QMovie>
#include <QPixmap>
#include <QWidget>

/// A large picture of the applied item: its animation or its thumbnail. Space plays and stops it.
class PreviewPane : public QWidget
{
    Q_OBJECT

public:
    explicit PreviewPane(QWidget* parent);

    /// Shows files by their paths. Without an animation it shows the thumbnail; without a
    /// thumbnail, an animation that is not playing shows its first frame; without either, nothing.
    /// A file that announces more than PictureFormat::maxPixels is ignored.
    void show(const QString& thumbnail, const QString& animation, bool play);
    void setPlaying(bool playing);
    bool isPlaying() const { return m_movie.state() == QMovie::Running; }

    QSize sizeHint() const override;

protected:
    void resizeEvent(QResizeEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    QPixmap m_still;
    QMovie m_movie;
    bool m_animated = false;
    bool m_hasFrame = false; // until then the movie's picture is that of the previous file
};
