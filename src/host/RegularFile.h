// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "host/MvHostExport.h"

#include <QIODevice>

#include <functional>

class QByteArray;
class QFile;
class QString;

/// Reads files whose names are untrusted. A name can lead to an endless device or to a pipe without
/// a writer: only regular files are opened, without waiting. Stateless, any thread.
class MVHOST_EXPORT RegularFile
{
public:
    RegularFile() = delete;

    /// Opens `file` by its name, following links. With QIODevice::ReadWrite a missing file is
    /// created. Returns false, with the reason in `error` (may be null), for anything except a
    /// regular file and if the system refuses.
    static bool open(QFile& file, QIODevice::OpenMode mode = QIODevice::ReadOnly,
                     QString* error = nullptr);

    /// Takes the next bytes of a file; false ends the reading.
    using ChunkHandler = std::function<bool(const char* bytes, int length)>;
    /// Reads an open file from its position to its end, in chunks. False if reading fails or the
    /// handler returns false.
    static bool readChunks(QFile& file, const ChunkHandler& handler);

    /// Reads an open file to its end. Returns false, with the data read so far in `bytes`, if
    /// reading fails or there are more than `maxBytes`.
    static bool readAll(QFile& file, qint64 maxBytes, QByteArray& bytes);
};
