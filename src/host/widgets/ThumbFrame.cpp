#include "host/widgets/ThumbFrame.h"

#include "host/widgets/PictureDecoder.h"

#include <QDateTime>
#include <QFileInfo>
#include <QPainter>
#include <QPixmapCache>

#include <algorithm>

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
    if (m_pixmap.isNull()) {
        if (m_hasPlaceholder)
            paintPlaceholder();
        return;
    }
    const QSizeF size = QSizeF(m_pixmap.size()) / ratio;
    const QPointF topLeft(area.x() + (area.width() - size.width()) / 2,
                          area.y() + (area.height() - size.height()) / 2);
    QPainter painter(this);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawPixmap(topLeft, m_pixmap);
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
