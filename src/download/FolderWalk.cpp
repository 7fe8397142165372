// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "download/FolderWalk.h"

#include "host/FileLink.h"

#include <QDirIterator>
#include <QFileInfo>

bool FolderWalk::visit(const QString& folder, QDir::Filters filters, const Visitor& visitor)
{
    const QDir::Filters listed =
        QDir::Dirs | QDir::Files | QDir::NoDotAndDotDot | (filters & QDir::Hidden);
    QDirIterator entries(folder, listed);
    while (entries.hasNext()) {
        entries.next();
        const QFileInfo entry = entries.fileInfo();
        if (FileLink::isLink(entry))
            continue;
        const bool isFolder = entry.isDir();
        if (filters.testFlag(isFolder ? QDir::Dirs : QDir::Files) && !visitor(entry))
            return false;
        if (isFolder && !visit(entry.filePath(), filters, visitor))
            return false;
    }
    return true;
}
