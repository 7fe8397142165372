// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "download/ResourceEvents.h"

#include "host/Immortal.h"

#include <QMetaType>

ResourceEvents::ResourceEvents()
{
    // For queued connections.
    qRegisterMetaType<ECfgItemType>("ECfgItemType");
    qRegisterMetaType<SItemDownloadResult>("SItemDownloadResult");
}

ResourceEvents* ResourceEvents::instance()
{
    static Immortal<ResourceEvents> events;
    return &*events;
}

void ResourceEvents::tellDownloadStarted(ECfgItemType kind, const QString& guid)
{
    emit downloadStarted(kind, guid);
}

void ResourceEvents::tellDownloadProgress(ECfgItemType kind, const QString& guid, int percent)
{
    emit downloadProgressed(kind, guid, percent);
}

void ResourceEvents::tellDownloadEnded(ECfgItemType kind, const QString& guid,
                                       const SItemDownloadResult& result)
{
    emit downloadEnded(kind, guid, result);
}

void ResourceEvents::tellFilesChanged(const QStringList& paths)
{
    emit filesChanged(paths);
}
