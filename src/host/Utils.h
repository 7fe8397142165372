#pragma once

#include "host/MvHostExport.h"

#include <QString>

class QByteArray;
class QDir;
struct STransferFailure;

/// File operations of the platform. Stateless; every one may be called from every thread.
///
/// Copies are atomic: the target name holds the old file or the whole new one, also after a kill.
class MVHOST_EXPORT Utils
{
public:
    Utils() = delete;

    /// MD5 sum (RFC 1321) of the file as 32 lower-case hexadecimal digits; empty if it is not a
    /// regular file or cannot be read to its end.
    static QString getMD5(const QString& file);

    /// Copies `sourceFile` to `fileName` in the existing folder `targetDir`, replacing what is
    /// there. False: the target is as it was. Also removes what a killed process left in the
    /// folder.
    static bool copyFile(const QString& sourceFile, const QDir& targetDir, const QString& fileName);

    /// Copies the regular file `from` to the path `to`, whose folder must exist. Without
    /// `overwrite` an existing target is kept and the result is false.
    static bool copyFileToPath(const QString& from, const QString& to, bool overwrite);

    /// Replaces the file `path`, whose folder must exist, by `content`, atomically; data and name
    /// are on the disk when it returns. False, with the reason in `failure` (may be null): the file
    /// is as it was. Also removes what a killed process left in the folder.
    static bool writeFile(const QString& path, const QByteArray& content,
                          STransferFailure* failure = nullptr);

    /// Copies everything below the folder `from` into the folder `to`, which is created if missing.
    /// Links are not followed. Without `overwrite` existing files are kept. Goes on after a file
    /// that cannot be copied; true only if all were. False too if `to` lies inside `from`.
    static bool copyDirectoryFiles(const QString& from, const QString& to, bool overwrite);

    /// Removes a folder: with everything in it if `recursive`, else only if it is empty. A link is
    /// removed, not followed. True if nothing stands under that name afterwards.
    static bool rmDir(const QString& path, bool recursive);

    /// The user's data folder, without a trailing slash.
    static QString strDataLocation();
};
