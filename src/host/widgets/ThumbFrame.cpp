// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "host/widgets/ThumbFrame.h"

#include "host/HostSettings.h"
#include "host/widgets/PictureDecoder.h"
#include "host/widgets/PictureLoader.h"
#include "host/widgets/PictureRequest.h"

#include <QDateTime>
#include <QFileInfo>
#include <QPainter>
#include <QPixmapCache>

#include <algorithm>

namespace {

/// Returns the key of a decoded image in the cache shared by all frames; it changes with the file.
QString cacheKey(const QString& path, const QSize& pixels)
{
    const QFileInfo file(path);
    return QStringLiteral("%1 %2x%3 %4 %5")
        .arg(path)
        .arg(pixels.width())
        .arg(pixels.height())
        .arg(file.lastModified().toMSecsSinceEpoch())
        .arg(file.size());
}

} // namespace

ThumbFrame::ThumbFrame(QWidget* parent)
    : QFrame(parent)
{
}

ThumbFrame::~ThumbFrame() = default;

void ThumbFrame::setImagePath(const QString& path)
{
    if (path == m_path)
        return;
    m_path = path;
    setIsEmpty(true);
    m_previous = QPixmap();
    m_isOutdated = false;
}

void ThumbFrame::setIsEmpty(bool empty)
{
    if (!empty)
        return;
    if (!m_pixmap.isNull())
        m_previous = m_pixmap;
    m_pixmap = QPixmap();
    m_isOutdated = m_isOutdated || m_obtainedFor.isValid();
    dropRequest();
    m_obtainedFor = QSize();
    update();
}

void ThumbFrame::paintEvent(QPaintEvent* event)
{
    QFrame::paintEvent(event);
    const QRect area = contentsRect();
    const qreal ratio = devicePixelRatioF();
    const QSize pixels = (QSizeF(area.size()) * ratio).toSize();
    if (m_path.isEmpty() || pixels.isEmpty())
        return;
    if (pixels != m_obtainedFor)
        obtain(pixels);
    const QPixmap& shown = m_pixmap.isNull() ? m_previous : m_pixmap;
    if (shown.isNull()) {
        if (m_hasPlaceholder)
            paintPlaceholder();
        return;
    }
    const QSizeF size = QSizeF(shown.size().scaled(pixels, Qt::KeepAspectRatio)) / ratio;
    const QPointF topLeft(area.x() + (area.width() - size.width()) / 2,
                          area.y() + (area.height() - size.height()) / 2);
    QPainter painter(this);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawPixmap(QRectF(topLeft, size), shown, QRectF(shown.rect()));
}

void ThumbFrame::hideEvent(QHideEvent* event)
{
    QFrame::hideEvent(event);
    if (!m_pRequest)
        return;
    dropRequest();
    m_obtainedFor = QSize();
}

void ThumbFrame::setPlaceholderShown(bool shown)
{
    m_hasPlaceholder = shown;
    update();
}

/// Paints the outline of a picture: a frame with a sun above two hills.
void ThumbFrame::paintPlaceholder()
{
    constexpr qreal opacity = 0.3;
    const QRectF area = contentsRect();
    // The symbol has 16 units by 12 and takes half of the area.
    const qreal unit = std::min(area.width() / 16, area.height() / 12) / 2;

    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setOpacity(opacity);
    painter.translate(area.center());
    painter.scale(unit, unit);
    painter.setPen(
        QPen(palette().color(QPalette::WindowText), 1, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.drawRoundedRect(QRectF(-8, -6, 16, 12), 1, 1);
    painter.drawEllipse(QPointF(3.5, -2), 1.3, 1.3);
    painter.drawPolyline(QPolygonF({{-8, 4}, {-3, -1}, {2, 4}, {4, 2}, {8, 5}}));
}

void ThumbFrame::obtain(const QSize& pixels)
{
    dropRequest();
    m_obtainedFor = pixels;
    const QString key = cacheKey(m_path, pixels);
    QPixmap picture;
    if (QPixmapCache::find(key, &picture)) {
        take(key, picture);
        return;
    }
    if (hostSettings().decodeInBackground) {
        request(key);
        return;
    }
    picture = QPixmap::fromImage(PictureDecoder::read(m_path, pixels));
    take(key, picture);
}

void ThumbFrame::request(const QString& key)
{
    m_pRequest = PictureLoader::instance()->request(key, m_path, m_obtainedFor,
                                                    m_isOutdated ? PictureLoader::Sharing::NotBegun
                                                                 : PictureLoader::Sharing::Any);
    connect(m_pRequest.get(), &PictureRequest::decoded, this, [this, key](const QPixmap& picture) {
        dropRequest();
        take(key, picture);
        update();
    });
}

/// Others may keep the request.
void ThumbFrame::dropRequest()
{
    if (m_pRequest)
        m_pRequest->disconnect(this);
    m_pRequest.reset();
}

void ThumbFrame::take(const QString& key, const QPixmap& picture)
{
    m_pixmap = picture;
    m_previous = QPixmap();
    m_isOutdated = false;
    if (!picture.isNull())
        QPixmapCache::insert(key, picture);
}
