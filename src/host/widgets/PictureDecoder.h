#pragma once

#include "host/PictureFormat.h"
#include "host/widgets/MvHostUiExport.h"

#include <QImage>
#include <QSize>

class QIODevice;
class QMovie;

/// Decodes pictures that come from a server, where a few bytes can announce many pixels and a name
/// says nothing about the content.
///
/// Decodes PNG, JPEG and GIF, chosen by content, from regular files, of at most
/// PictureFormat::maxPixels. Stateless; every function may be called from every thread.
class MVHOSTUI_EXPORT PictureDecoder
{
public:
    PictureDecoder() = delete;

    /// Returns the picture in `path`, upright as its EXIF data says; of an animation the first
    /// image. Null for what is not decoded and for what is damaged.
    static QImage read(const QString& path);

    /// Returns the same scaled to fit into `fit`, which is not empty, and keeping its shape. A
    /// larger picture is never held whole where its decoder can scale.
    static QImage read(const QString& path, const QSize& fit);

    /// Gives `movie`, which is not running, the decoder of its file. False if the file is not
    /// decoded; the movie must not be asked anything then, as it would choose a decoder by itself.
    static bool prepare(QMovie& movie);

    /// Returns the size that a file announces, in pixels; invalid for one that is not decoded. Of a
    /// GIF the canvas counts, which its first image need not fill.
    static QSize announcedSize(const QString& path);
    /// Does the same with an open device that can seek, whose position is that of the picture and
    /// stays so.
    static QSize announcedSize(QIODevice& device);
};
