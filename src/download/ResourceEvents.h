// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "download/SItemDownloadResult.h"
#include "records/ECfgItemType.h"
#include "records/MvResourceExport.h"

#include <QMetaType>
#include <QObject>
#include <QString>
#include <QStringList>

/// Reports what happens to the items of this process, whoever caused it: every download by an
/// MVThemeDownLoader, and every file that a download, an ItemUpdate or a ResourceStorage has
/// stored, replaced or removed. Models of the catalogue follow these signals; hosts may, too.
///
/// Items are identified by kind and GUID: look them up on the thread that loads the catalogue,
/// which may have been loaded again meanwhile. The signals are emitted on the thread that does the
/// work, so they are queued to receivers elsewhere; a direct receiver must be quick and must not
/// use the catalogue.
///
/// One object per process, which is never destroyed. All functions may be called from any thread.
class MVRESOURCE_EXPORT ResourceEvents : public QObject
{
    Q_OBJECT

public:
    static ResourceEvents* instance();

    /// Emit the signals. The library calls them.
    void tellDownloadStarted(ECfgItemType kind, const QString& guid);
    void tellDownloadProgress(ECfgItemType kind, const QString& guid, int percent);
    void tellDownloadEnded(ECfgItemType kind, const QString& guid,
                           const SItemDownloadResult& result);
    void tellFilesChanged(const QStringList& paths);

signals:
    void downloadStarted(ECfgItemType kind, const QString& guid);
    /// The whole part of MVThemeDownLoader::progress(), 0 to 100; emitted when it changes.
    void downloadProgressed(ECfgItemType kind, const QString& guid, int percent);
    /// Emitted once per downloadStarted(), before MVThemeDownLoader::sigDownloadFinish().
    void downloadEnded(ECfgItemType kind, const QString& guid, const SItemDownloadResult& result);
    /// Files have come, gone or been replaced, or may have been; absolute paths without doubled
    /// slashes. After a download these are all the files that it was to fetch.
    void filesChanged(const QStringList& paths);

private:
    ResourceEvents();
    ~ResourceEvents() override = default;
    template <class T>
    friend class Immortal;
};

// For queued connections.
Q_DECLARE_METATYPE(ECfgItemType)
