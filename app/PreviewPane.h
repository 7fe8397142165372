#pragma once

#include <QMovie>
#include <QPixmap>
#include <QWidget>

/// A large picture of the applied item: its animation, or its thumbnail. Space plays and stops it.
class PreviewPane : public QWidget
{
    Q_OBJECT

public:
    explicit PreviewPane(QWidget* parent);

    /// Paths of the files. Without an animation the thumbnail shows, without both nothing; without
    /// a thumbnail an animation that does not play shows its first frame. A file that announces
    /// more than PictureFormat::maxPixels counts as none.
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
    bool m_hasFrame = false; // until then the movie's picture is that of the file before
};
