#include "host/widgets/ImageLimit.h"

#include <QImageReader>
#include <QtEndian>

namespace {

/// The canvas stands at the head of a GIF, as two numbers of two bytes, the lower byte first.
constexpr int gifHeadSize = 10;
constexpr int gifWidthAt = 6;
constexpr int gifHeightAt = 8;

} // namespace

bool ImageLimit::admits(QIODevice& file)
{
    const QByteArray head = file.peek(gifHeadSize);
    if (head.size() == gifHeadSize && head.startsWith("GIF8")) {
        const auto width = qFromLittleEndian<quint16>(head.constData() + gifWidthAt);
        const auto height = qFromLittleEndian<quint16>(head.constData() + gifHeightAt);
        const qint64 pixels = qint64{width} * height;
        return pixels > 0 && pixels <= mostPixels;
    }
    const qint64 start = file.pos();
    const QSize announced = QImageReader(&file).size();
    file.seek(start);
    return qint64{announced.width()} * announced.height() <= mostPixels;
}
