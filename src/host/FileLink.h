// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QFileInfo>

#ifdef Q_OS_WIN
#include "host/SystemFile.h"
#endif

/// Recognizes links. Stateless, any thread.
class FileLink
{
public:
    FileLink() = delete;

    /// Returns whether the entry is a link, or on Windows a junction, which QDir and QDirIterator
    /// take for a folder.
    static bool isLink(const QFileInfo& entry)
    {
#ifdef Q_OS_WIN
        return SystemFile::isLink(entry.filePath());
#else
        return entry.isSymLink();
#endif
    }
};
