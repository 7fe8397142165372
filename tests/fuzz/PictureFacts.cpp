// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "PictureFacts.h"

#include <QBuffer>
#include <QImageReader>
#include <QSize>

namespace {

/// Returns the size of a GIF's canvas, which the decoder allocates. QImageReader::size() doubts a
/// canvas far larger than the first image and returns that image's far corner, wherever it is.
QSize canvasOf(const QByteArray& gif)
{
    constexpr int headBytes = 10;
    const auto* const head = reinterpret_cast<const unsigned char*>(gif.constData());
    return gif.size() < headBytes ? QSize() : QSize(head[6] | head[7] << 8, head[8] | head[9] << 8);
}

QSize sizeByDecoder(QByteArray content)
{
    QBuffer buffer(&content);
    buffer.open(QIODevice::ReadOnly);
    return QImageReader(&buffer).size();
}

} // namespace

namespace PictureFacts {

bool isAccepted(const QByteArray& content)
{
    constexpr qint64 maxPixels = 16 * 1024 * 1024;
    const bool isGif = content.startsWith("GIF8");
    const bool isKnown =
        isGif || content.startsWith("\x89PNG\r\n\x1a\n") || content.startsWith("\xff\xd8\xff");
    if (!isKnown)
        return false;
    const QSize size = isGif ? canvasOf(content) : sizeByDecoder(content);
    return qint64{size.width()} * size.height() <= maxPixels;
}

} // namespace PictureFacts
