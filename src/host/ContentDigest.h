// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "host/MvHostExport.h"

#include <QByteArray>
#include <QString>
#include <QtGlobal>

#include <functional>
#include <memory>

/// The SHA-256 digest (FIPS 180-4) of a content that arrives in pieces.
///
/// Digests are compared and stored as 64 lower-case hexadecimal digits. An object belongs to one
/// thread at a time; the static functions may be called from any thread.
class MVHOST_EXPORT ContentDigest
{
public:
    /// Length of a digest's text.
    static constexpr int hexDigits = 64;

    /// Starts with an empty content.
    ContentDigest();
    ~ContentDigest();
    Q_DISABLE_COPY_MOVE(ContentDigest)

    /// Adds the next `length` bytes of the content.
    void add(const char* bytes, qint64 length);
    /// Forgets what has been added.
    void reset();
    /// Returns the digest of what has been added so far.
    QByteArray hex() const;

    /// Returns the digest of a content in memory.
    static QByteArray ofBytes(const QByteArray& bytes);

    /// Takes the number of bytes read so far; returns whether to continue.
    using Progress = std::function<bool(qint64 bytesRead)>;
    /// Returns the digest of a regular file; empty if it is not one, cannot be read to its end, or
    /// `progress` (may be empty) returns false.
    static QByteArray ofFile(const QString& path, const Progress& progress = Progress());

    /// Returns whether a text has the form of a digest: 64 digits, 0 to 9 and a to f.
    static bool isDigest(const QByteArray& text);

private:
    class Private;
    std::unique_ptr<Private> d;
};
