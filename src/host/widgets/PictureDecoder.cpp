// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "host/widgets/PictureDecoder.h"

#include "host/RegularFile.h"

#include <QFile>
#include <QImageReader>
#include <QMovie>
#include <QtEndian>

namespace {

// Logical screen descriptor of a GIF: two little-endian numbers after the signature.
constexpr int gifHeadBytes = 10;
constexpr int gifWidthAt = 6;
constexpr int gifHeightAt = 8;

QSize gifCanvas(const QByteArray& head)
{
    if (head.size() < gifHeadBytes)
        return {};
    return {qFromLittleEndian<quint16>(head.constData() + gifWidthAt),
            qFromLittleEndian<quint16>(head.constData() + gifHeightAt)};
}

void choose(QImageReader& reader, PictureFormat::Kind kind)
{
    reader.setAutoDetectImageFormat(false);
    reader.setFormat(PictureFormat::decoderName(kind));
    reader.setAutoTransform(true);
}

PictureFormat::Kind formatOf(QIODevice& device)
{
    return PictureFormat::ofContent(device.peek(PictureFormat::signatureBytes));
}

QSize fitted(const QSize& size, const QSize& fit)
{
    return size.scaled(fit, Qt::KeepAspectRatio).expandedTo(QSize(1, 1));
}

/// An empty `fit` keeps the picture's own size.
QImage decode(const QString& path, const QSize& fit)
{
    QFile file(path);
    if (!RegularFile::open(file))
        return {};
    const QSize size = PictureDecoder::announcedSize(file);
    if (!size.isValid())
        return {};
    QImageReader reader;
    reader.setDevice(&file);
    choose(reader, formatOf(file));
    if (fit.isEmpty())
        return reader.read();

    // Decoders scale before the picture is rotated upright.
    const bool isTurned = reader.transformation().testFlag(QImageIOHandler::TransformationRotate90);
    const QSize wanted = fitted(size, isTurned ? fit.transposed() : fit);
    if (wanted.width() < size.width())
        reader.setScaledSize(wanted);
    const QImage image = reader.read();
    return image.isNull() ? image
                          : image.scaled(fit, Qt::KeepAspectRatio, Qt::SmoothTransformation);
}

} // namespace

QImage PictureDecoder::read(const QString& path)
{
    return decode(path, QSize());
}

QImage PictureDecoder::read(const QString& path, const QSize& fit)
{
    return decode(path, fit);
}

bool PictureDecoder::prepare(QMovie& movie)
{
    const QString path = movie.fileName();
    if (!announcedSize(path).isValid())
        return false;
    movie.setFormat(PictureFormat::decoderName(PictureFormat::ofFile(path)));
    return movie.isValid();
}

QSize PictureDecoder::announcedSize(const QString& path)
{
    QFile file(path);
    return RegularFile::open(file) ? announcedSize(file) : QSize();
}

QSize PictureDecoder::announcedSize(QIODevice& device)
{
    const PictureFormat::Kind kind = formatOf(device);
    if (kind == PictureFormat::Kind::None)
        return {};
    QSize size;
    if (kind == PictureFormat::Kind::Gif) {
        size = gifCanvas(device.peek(gifHeadBytes));
    } else {
        const qint64 start = device.pos();
        QImageReader reader;
        reader.setDevice(&device);
        choose(reader, kind);
        size = reader.size();
        device.seek(start);
    }
    const bool isDecoded =
        !size.isEmpty() && qint64{size.width()} * size.height() <= PictureFormat::maxPixels;
    return isDecoded ? size : QSize();
}
