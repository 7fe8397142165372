// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "records/ECfgItemType.h"
#include "records/MvResourceExport.h"

#include <QMutex>
#include <QString>

#include <memory>

class QDebug;

/// One file that a catalogue item needs, with the state of its download.
///
/// Every record is created with a mutex, which its copies share. The mutex guards all fields once
/// more than one thread can reach the record: the resolvers of MVThemeMgr, the download threads and
/// copying lock it, so any other code that reads or writes a field must lock it, too (`QMutexLocker
/// lock(info.m_pMutex.get())`). A record without a mutex (null) is not locked and must stay on one
/// thread. A thread must not copy a record while holding its mutex.
struct MVRESOURCE_EXPORT SFileInfo
{
    /// Creates an empty record with a mutex of its own.
    SFileInfo();
    /// Copies the fields under the mutex, and shares it.
    SFileInfo(const SFileInfo& other);
    /// Copies the fields and shares the mutex, as the constructor does.
    SFileInfo& operator=(const SFileInfo& other);
    /// Moves the fields without locking; the source is left without a mutex.
    SFileInfo(SFileInfo&& other) noexcept = default;
    /// Moves the fields, as the constructor does.
    SFileInfo& operator=(SFileInfo&& other) noexcept = default;
    ~SFileInfo() = default;

    /// The kind of the folder that the file belongs to: the item's kind; eCfgItem_Theme for every
    /// GIF preview; eCfgItem_Resource for a resource file that has not been resolved yet.
    ECfgItemType m_eType = eCfgItem_Resource;
    /// True: the display half (thumbnail, GIF), addressed by MVThemeMgr::downLoadUrl_Thumb.
    /// False: the config half, addressed by MVThemeMgr::downLoadUrl.
    bool m_bThumbDir = false;
    /// Name of the file as given in the catalogue; relative to the server root.
    QString m_qsUrl;
    /// Absolute local path of the file, present or future; empty until resolved, and if nothing is
    /// to be fetched.
    QString m_qsFile;
    /// A download thread has taken this file and has not released it.
    bool m_bDownloaded = false;
    /// Bytes received by the download in progress.
    qint64 m_nReceived = 0;
    /// Total bytes of the download in progress; 0 while unknown.
    qint64 m_nTotal = 0;
    /// Guards the fields above; not recursive. Shared with all copies.
    std::shared_ptr<QMutex> m_pMutex;
};

/// Prints the record for log output and test failures.
MVRESOURCE_EXPORT QDebug operator<<(QDebug debug, const SFileInfo& info);

Q_DECLARE_TYPEINFO(SFileInfo, Q_MOVABLE_TYPE);
