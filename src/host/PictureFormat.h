// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "host/MvHostExport.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

/// The picture formats that clients decode, recognised by content and never by name: a file named
/// as PNG may have a format whose decoder follows links or exhausts the memory.
///
/// Stateless; all functions may be called from any thread.
class MVHOST_EXPORT PictureFormat
{
public:
    /// The formats; None for any other content.
    enum class Kind { None, Png, Jpeg, Gif };

    PictureFormat() = delete;

    /// Number of leading bytes that ofContent() needs.
    static constexpr int signatureBytes = 8;
    /// The largest picture, or canvas of an animation, that clients decode: 16 Mi pixels.
    static constexpr qint64 maxPixels = 16 * 1024 * 1024;

    /// Returns the format of content with this beginning: the PNG signature (ISO/IEC 15948), the
    /// start of image marker and another one (ITU-T T.81), or GIF87a and GIF89a.
    static Kind ofContent(const QByteArray& beginning);
    /// Returns the format of the regular file `path`; None also if it cannot be read.
    static Kind ofFile(const QString& path);

    /// Returns the format of the suffix of `name`, ignoring case.
    static Kind ofName(const QString& name);
    /// Returns whether the suffix of `name` is that of a picture.
    static bool isPictureName(const QString& name) { return ofName(name) != Kind::None; }
    /// Returns the suffixes of a format, each with its dot; empty for None.
    static QStringList suffixes(Kind kind);

    /// Returns Qt's name of the decoder ("png"); empty for None.
    static QByteArray decoderName(Kind kind);
};
