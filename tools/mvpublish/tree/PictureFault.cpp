// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "tree/PictureFault.h"

#include "host/PictureFormat.h"

namespace PictureFault {

QString of(const QString& file)
{
    const PictureFormat::Kind kind = PictureFormat::ofFile(file);
    if (kind == PictureFormat::Kind::None)
        return QStringLiteral("is not a PNG, JPEG or GIF, and clients show no other pictures");
    if (PictureFormat::ofName(file) == kind)
        return QString();
    return QStringLiteral("is a %1, but its name does not end in %2")
        .arg(QString::fromLatin1(PictureFormat::decoderName(kind)).toUpper(),
             PictureFormat::suffixes(kind).join(QStringLiteral(" or ")));
}

} // namespace PictureFault
