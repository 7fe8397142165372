#include "host/widgets/ThumbFrame.h"

#include "host/widgets/PictureDecoder.h"

#include <QDateTime>
#include <QFileInfo>
#include <QPainter>
#include <QPixmapCache>

namespace {

/// Returns the key of a decoded image in the cache shared by all frames; it changes with the file.
QString cacheKey(const QString& path, const QSize& pixels, qreal ratio)
{
    const QFileInfo file(path);
    return QStringLiteral("%1 %2x%3 %4 %5 %6")
        .arg(path)
        .arg(pixels.width())
        .arg(pixels.height())
        .arg(ratio)
        .arg(file.lastModified().toMSecsSinceEpoch())
        .arg(file.size());
}

} // namespace

ThumbFrame::ThumbFrame(QWidget* parent)
    : QFrame(parent)
{
}

void ThumbFrame::setImagePath(const QString& path)
{
    if (path == m_path)
        return;
    m_path = path;
    setIsEmpty(true);
}

void ThumbFrame::setIsEmpty(bool empty)
{
    if (!empty)
        return;
    m_pixmap = QPixmap();
    m_decodedFor = QSize();
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
    if (pixels != m_decodedFor || !qFuzzyCompare(ratio, m_decodedRatio))
        decode(pixels, ratio);
    if (m_pixmap.isNull())
        return;
    const QSizeF size = QSizeF(m_pixmap.size()) / ratio;
    const QPointF topLeft(area.x() + (area.width() - size.width()) / 2,
                          area.y() + (area.height() - size.height()) / 2);
    QPainter painter(this);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawPixmap(topLeft, m_pixmap);
}

void ThumbFrame::decode(const QSize& pixels, qreal ratio)
{
    m_decodedFor = pixels;
    m_decodedRatio = ratio;
    m_pixmap = QPixmap();
    const QString key = cacheKey(m_path, pixels, ratio);
    if (QPixmapCache::find(key, &m_pixmap))
        return;
    const QImage image = PictureDecoder::read(m_path, pixels);
    if (image.isNull())
        return;
    m_pixmap = QPixmap::fromImage(image);
    m_pixmap.setDevicePixelRatio(ratio);
    QPixmapCache::insert(key, m_pixmap);
}
