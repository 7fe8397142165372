#pragma once

#include "host/MvHostExport.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

/// The formats of pictures that clients decode, told by content and never by name: a file that
/// calls itself PNG may hold a format whose decoder follows links or fills the memory.
///
/// Stateless; every function may be called from every thread.
class MVHOST_EXPORT PictureFormat
{
public:
    enum class Kind { None, Png, Jpeg, Gif };

    PictureFormat() = delete;

    /// Bytes from the beginning that ofContent() wants to see.
    static constexpr int signatureBytes = 8;
    /// The largest picture, or canvas of an animation, that clients decode: 16 Mi pixels.
    static constexpr qint64 maxPixels = 16 * 1024 * 1024;

    /// Returns the format of content that begins so: the PNG signature (ISO/IEC 15948), the start
    /// of image marker and another one (ITU-T T.81), or GIF87a and GIF89a.
    static Kind ofContent(const QByteArray& beginning);
    /// Returns the format of the regular file `path`; None also for what cannot be read.
    static Kind ofFile(const QString& path);

    /// Returns the format that the suffix of `name` promises, without regard to case.
    static Kind ofName(const QString& name);
    /// Returns whether the suffix of `name` promises a picture.
    static bool isPictureName(const QString& name) { return ofName(name) != Kind::None; }
    /// Returns the suffixes of a format, each with its dot; none for None.
    static QStringList suffixes(Kind kind);

    /// Returns the name under which Qt knows the decoder ("png"); empty for None.
    static QByteArray decoderName(Kind kind);
};
