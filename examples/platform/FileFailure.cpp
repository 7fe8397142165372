// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "FileFailure.h"

#include <QFileInfo>
#include <QSaveFile>
#include <QString>

STransferFailure FileFailure::of(const QSaveFile& file, const QString& url)
{
    const QFileInfo folder(QFileInfo(file.fileName()).path());
    EFailureCause cause = eFailure_LocalFile;
    if (file.error() == QFileDevice::ResourceError)
        cause = eFailure_DiskFull;
    else if (folder.exists() && !folder.isWritable())
        cause = eFailure_NoPermission;
    return {cause, url, file.fileName(), file.errorString()};
}
