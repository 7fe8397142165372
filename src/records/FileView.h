// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "records/ECfgItemType.h"
#include "records/MvResourceExport.h"

#include <QString>

struct SFileInfo;

/// Reads a file record that other threads may be changing: every access locks the record's mutex,
/// if there is one. Any thread; the view must not outlive the record, and a thread must not use it
/// while holding the mutex.
class MVRESOURCE_EXPORT FileView
{
public:
    /// The progress of a file's download.
    struct Counts
    {
        qint64 receivedBytes = 0; ///< so far
        qint64 totalBytes = 0;    ///< 0 while unknown
    };

    /// Gives access to `info`, which must outlive this object.
    explicit FileView(const SFileInfo& info);

    /// Returns the kind of the folder that the file belongs to.
    ECfgItemType kind() const;
    /// Returns whether the file belongs to the display half, see SFileInfo::m_bThumbDir.
    bool isDisplayHalf() const;
    /// Returns the name on the server.
    QString name() const;
    /// Returns the absolute path on disk; empty until resolved, and if nothing is to be fetched.
    QString file() const;
    /// Returns whether a download thread has taken the file, see FileRecord::take().
    bool isTaken() const;
    /// Returns the progress of the file's download.
    Counts counts() const;

private:
    const SFileInfo& m_info;
};
