#pragma once

#include "records/ECfgItemType.h"
#include "records/MvResourceExport.h"

#include <QString>

struct SFileInfo;

/// Reads a file record that other threads may be changing: every access is made under the record's
/// mutex, if it has one. Any thread; the view must not outlive the record, nor be used by a thread
/// that holds its mutex.
class MVRESOURCE_EXPORT FileView
{
public:
    struct Counts
    {
        qint64 receivedBytes = 0;
        qint64 totalBytes = 0; ///< 0 while that is not known
    };

    explicit FileView(const SFileInfo& info);

    ECfgItemType kind() const;
    /// Returns whether the file belongs to the display half, see SFileInfo::m_bThumbDir.
    bool isDisplayHalf() const;
    /// Returns the name on the server.
    QString name() const;
    /// Returns the absolute path on disk; empty until it is resolved, and when there is nothing to
    /// fetch.
    QString file() const;
    /// Returns whether a download thread has taken the file, see FileRecord::take().
    bool isTaken() const;
    Counts counts() const;

private:
    const SFileInfo& m_info;
};
