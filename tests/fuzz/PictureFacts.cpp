// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "PictureFacts.h"

#include <QBuffer>
#include <QImageReader>
#include <QSize>

namespace PictureFacts {

bool isAccepted(const QByteArray& content)
{
    constexpr qint64 maxPixels = 16 * 1024 * 1024;
    const bool isKnown = content.startsWith("\x89PNG\r\n\x1a\n")
        || content.startsWith("\xff\xd8\xff") || content.startsWith("GIF8");
    QByteArray bytes = content;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::ReadOnly);
    const QSize size = QImageReader(&buffer).size();
    return isKnown && qint64{size.width()} * size.height() <= maxPixels;
}

} // namespace PictureFacts
