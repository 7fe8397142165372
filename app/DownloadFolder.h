// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "host/CancelToken.h"

#include <QString>

/// Facts about a folder for downloads. Stateless; any thread.
class DownloadFolder
{
public:
    DownloadFolder() = delete;

    /// The least space that is not worth a warning.
    static constexpr qint64 fewBytes = 100LL * 1000 * 1000;

    /// Returns the catalogue's download root. GUI thread.
    static QString inUse();
    /// Returns whether files can be written below the folder, which is created if necessary; tries
    /// it with a small file.
    static bool isWritable(const QString& folder);
    /// Returns the space that is left for the user on the folder's file system; -1 if unknown.
    static qint64 freeBytes(const QString& folder);
    /// Returns the size of all files below the folder, or of those that were found before the
    /// token was cancelled.
    static qint64 usedBytes(const QString& folder, const CancelToken& cancel);
};
