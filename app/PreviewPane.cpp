// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "PreviewPane.h"

#include "host/widgets/PictureDecoder.h"

#include <QKeyEvent>
#include <QPainter>
#include <QStyle>

namespace {

constexpr int aspectWidth = 16;
constexpr int aspectHeight = 9;
constexpr int widthHint = 320;

} // namespace

PreviewPane::PreviewPane(QWidget* parent)
    : QWidget(parent)
{
    setFocusPolicy(Qt::TabFocus);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    connect(&m_movie, &QMovie::updated, this, [this] {
        m_hasFrame = true;
        update();
    });
}

void PreviewPane::show(const QString& thumbnail, const QString& animation, bool play)
{
    m_movie.stop();
    m_animated = false;
    m_hasFrame = false;
    m_movie.setFileName(animation);
    m_animated = PictureDecoder::prepare(m_movie);
    m_still = QPixmap::fromImage(PictureDecoder::read(thumbnail));
    setPlaying(play);
    if (m_animated && !play && m_still.isNull())
        m_movie.jumpToFrame(0);
    update();
}

void PreviewPane::setPlaying(bool playing)
{
    if (!m_animated || playing == isPlaying())
        return;
    if (playing)
        m_movie.start();
    else
        m_movie.stop();
    update();
}

QSize PreviewPane::sizeHint() const
{
    return {widthHint, widthHint * aspectHeight / aspectWidth};
}

void PreviewPane::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    setFixedHeight(width() * aspectHeight / aspectWidth);
}

void PreviewPane::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.fillRect(rect(), palette().color(QPalette::Button));
    const bool moving = m_hasFrame && (isPlaying() || m_still.isNull());
    const QPixmap picture = moving ? m_movie.currentPixmap() : m_still;
    if (!picture.isNull()) {
        const QSize size = picture.size().scaled(rect().size(), Qt::KeepAspectRatio);
        painter.drawPixmap(QStyle::alignedRect(layoutDirection(), Qt::AlignCenter, size, rect()),
                           picture);
    }
    if (!hasFocus())
        return;
    painter.setPen(QPen(palette().color(QPalette::Highlight), 2));
    painter.drawRect(rect().adjusted(1, 1, -1, -1));
}

void PreviewPane::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Space)
        setPlaying(!isPlaying());
    else
        QWidget::keyPressEvent(event);
}

void PreviewPane::mouseReleaseEvent(QMouseEvent* /*event*/)
{
    setPlaying(!isPlaying());
}
