// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "DownloadFolder.h"

#include "catalogue/MVThemeMgr.h"
#include "download/FolderWalk.h"

#include <QDir>
#include <QFileInfo>
#include <QStorageInfo>
#include <QTemporaryFile>

QString DownloadFolder::inUse()
{
    return QFileInfo(MVThemeMgr::init()->Path_resource_RootDir(MVThemeMgr::eLoadDir_Download))
        .path();
}

bool DownloadFolder::isWritable(const QString& folder)
{
    if (!QDir().mkpath(folder))
        return false;
    QTemporaryFile probe(folder + QStringLiteral("/.writable-XXXXXX"));
    return probe.open() && probe.write("x", 1) == 1 && probe.flush();
}

qint64 DownloadFolder::freeBytes(const QString& folder)
{
    const QStorageInfo disk(folder);
    return disk.isValid() && disk.isReady() ? disk.bytesAvailable() : -1;
}

qint64 DownloadFolder::usedBytes(const QString& folder, const CancelToken& cancel)
{
    qint64 bytes = 0;
    FolderWalk::visit(folder, QDir::Files | QDir::Hidden, [&](const QFileInfo& file) {
        if (cancel.isCancelled())
            return false;
        bytes += file.size();
        return true;
    });
    return bytes;
}
