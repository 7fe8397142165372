// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "host/PictureFormat.h"
#include "host/widgets/MvHostUiExport.h"

#include <QImage>
#include <QSize>

class QIODevice;
class QMovie;

/// Decodes pictures from a server, where a few bytes can announce many pixels and a name proves
/// nothing about the content.
///
/// Decodes PNG, JPEG and GIF, chosen by content, from regular files, of at most
/// PictureFormat::maxPixels. Stateless; all functions may be called from any thread.
class MVHOSTUI_EXPORT PictureDecoder
{
public:
    PictureDecoder() = delete;

    /// Returns the picture in `path`, upright according to its EXIF data; the first image of an
    /// animation. Null for damaged pictures and those that are not decoded.
    static QImage read(const QString& path);

    /// Returns the picture scaled to fit into `fit`, which is not empty, keeping its aspect ratio.
    /// A larger picture is never held in full size if its decoder can scale.
    static QImage read(const QString& path, const QSize& fit);

    /// Gives `movie`, which is not running, the decoder of its file. Returns false if the file is
    /// not decoded; the movie must not be queried then, as it would choose a decoder itself.
    static bool prepare(QMovie& movie);

    /// Returns the size that a file announces, in pixels; invalid for one that is not decoded. For
    /// a GIF it is that of the canvas, which its first image need not fill.
    static QSize announcedSize(const QString& path);
    /// Does the same with an open, seekable device, positioned at the picture. Keeps the position.
    static QSize announcedSize(QIODevice& device);
};
