// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "host/STransferFailure.h"

#include <QHash>
#include <QJsonObject>
#include <QString>
#include <QStringList>

/// One favourites file as a process reads and writes it: a JSON object with a boolean for each
/// GUID.
///
/// Several processes share the file, so saving merges this process's changes into the current file,
/// under a lock file. A process that has neither read the file nor changed a mark writes nothing. A
/// file that cannot be parsed is never overwritten: it is kept aside under "NAME.damaged-N".
/// Internal to the library; GUI thread only.
class CollectFile
{
public:
    enum class Read {
        Done,
        CannotOpen,  ///< or cannot be read to the end
        CannotParse, ///< includes a newly created, empty file
    };

    /// Replaces `marks` by the file's content and discards unsaved changes. A missing file is
    /// created empty. Unless the result is Done, `marks` is left unchanged.
    Read read(const QString& path, QJsonObject& marks);

    /// Changes the mark of a GUID.
    void setMarked(const QString& guid, bool isMarked);

    /// Returns whether a GUID is marked, by this process or else in `marks`, as filled by read() or
    /// save(). An unknown GUID is recorded as queried: save() writes it as not marked.
    bool isMarked(const QString& guid, const QJsonObject& marks);

    /// Returns the marked GUIDs, sorted.
    QStringList marked(const QJsonObject& marks) const;

    /// Returns whether save() has something to write: the file was read, or a mark was changed.
    bool isInUse() const { return m_isInUse; }

    /// Merges this process's changed marks and queried GUIDs into the file, atomically and durably,
    /// and sets `marks` to the file's new content. Returns no failure if there was nothing to
    /// write. After a failure the file is unchanged, and the changes are kept for the next call.
    STransferFailure save(const QString& path, QJsonObject& marks);

private:
    struct OnDisk
    {
        QByteArray bytes;
        QJsonObject marks;
        bool isThere = false;  ///< the file exists and is not empty
        bool isParsed = false; ///< it is a JSON object
    };

    struct Mark
    {
        bool isMarked;
        bool isChanged; ///< otherwise queried
    };

    static STransferFailure readDisk(const QString& path, OnDisk& disk);
    static STransferFailure keepAside(const QString& path);
    QJsonObject merged(const QJsonObject& marks, const OnDisk& disk) const;

    bool m_isInUse = false;
    // By GUID, since the last read or save. Not in the JSON object, where each insertion moves all
    // entries behind it, so that querying a whole catalogue would take quadratic time.
    QHash<QString, Mark> m_own;
};
