// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "host/PictureFormat.h"

#include "host/RegularFile.h"

#include <QFile>

PictureFormat::Kind PictureFormat::ofContent(const QByteArray& beginning)
{
    if (beginning.startsWith("\x89PNG\r\n\x1a\n"))
        return Kind::Png;
    if (beginning.startsWith("\xff\xd8\xff"))
        return Kind::Jpeg;
    if (beginning.startsWith("GIF87a") || beginning.startsWith("GIF89a"))
        return Kind::Gif;
    return Kind::None;
}

PictureFormat::Kind PictureFormat::ofFile(const QString& path)
{
    QFile file(path);
    return RegularFile::open(file) ? ofContent(file.read(signatureBytes)) : Kind::None;
}

QByteArray PictureFormat::decoderName(Kind kind)
{
    switch (kind) {
    case Kind::Png:
        return "png";
    case Kind::Jpeg:
        return "jpeg";
    case Kind::Gif:
        return "gif";
    case Kind::None:
        break;
    }
    return QByteArray();
}
