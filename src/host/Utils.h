// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "host/MvHostExport.h"

#include <QString>

class QByteArray;
class QDir;
struct STransferFailure;

/// File operations of the platform. Stateless; all functions may be called from any thread.
///
/// Copies are atomic: the target holds either the old file or the complete new one, even after a
/// kill.
class MVHOST_EXPORT Utils
{
public:
    Utils() = delete;

    /// Returns the MD5 digest (RFC 1321) of the file as 32 lower-case hexadecimal digits; empty if
    /// it is not a regular file or cannot be read to its end.
    static QString getMD5(const QString& file);

    /// Copies `sourceFile` to `fileName` in the existing folder `targetDir`, replacing an existing
    /// file. On false the target is unchanged. Also removes the remains of a killed process from
    /// the folder.
    static bool copyFile(const QString& sourceFile, const QDir& targetDir, const QString& fileName);

    /// Copies the regular file `from` to the path `to`, whose folder must exist. Without
    /// `overwrite` an existing target is kept and the result is false.
    static bool copyFileToPath(const QString& from, const QString& to, bool overwrite);

    /// Replaces the file `path`, whose folder must exist, by `content`, atomically; data and name
    /// are on the disk when it returns. On false, with the reason in `failure` (may be null), the
    /// file is unchanged. Also removes the remains of a killed process from the folder.
    static bool writeFile(const QString& path, const QByteArray& content,
                          STransferFailure* failure = nullptr);

    /// Copies everything below the folder `from` into the folder `to`, which is created if missing.
    /// Links are not followed. Without `overwrite` existing files are kept. Continues after a file
    /// that cannot be copied; returns true only if all were. Returns false if `to` is inside
    /// `from`.
    static bool copyDirectoryFiles(const QString& from, const QString& to, bool overwrite);

    /// Removes a folder: with its content if `recursive`, otherwise only if it is empty. A link is
    /// removed, not followed. Returns whether nothing has that name afterwards.
    static bool rmDir(const QString& path, bool recursive);

    /// Returns the user's data folder, without a trailing slash.
    static QString strDataLocation();
};
