#pragma once

#include "host/STransferFailure.h"

#include <QHash>
#include <QJsonObject>
#include <QString>
#include <QStringList>

/// One favourites file, as one process reads and writes it: a JSON object with a boolean for each
/// GUID.
///
/// Several processes share the file, so saving merges what this process has changed into what is on
/// disk by then, under a lock file. A process that has neither read the file nor changed a mark
/// writes nothing. A file that cannot be parsed is never overwritten: it is kept aside under
/// "NAME.damaged-N". Internal to the library; GUI thread only.
class CollectFile
{
public:
    enum class Read {
        Done,
        CannotOpen,  ///< or cannot be read to its end
        CannotParse, ///< also a file that has just been created, which is empty
    };

    /// Replaces `marks` by the file's, and forgets unsaved changes. A missing file is created
    /// empty. Unless the result is Done, `marks` stays as it is.
    Read read(const QString& path, QJsonObject& marks);

    /// Changes the mark of a GUID.
    void setMarked(const QString& guid, bool isMarked);

    /// Returns whether a GUID is marked, by this process or else in `marks`, which read() or save()
    /// has filled. One that neither knows is noted as asked about: save() writes it as not marked.
    bool isMarked(const QString& guid, const QJsonObject& marks);

    /// The GUIDs that are marked, sorted.
    QStringList marked(const QJsonObject& marks) const;

    /// Returns whether save() has something to write: the file was read, or a mark was changed.
    bool isInUse() const { return m_isInUse; }

    /// Replaces the file, atomically and durably, by what is on disk, with the marks that this
    /// process has changed and the GUIDs it has asked about; `marks` becomes what the file holds.
    /// Returns no failure if there was nothing to write. After a failure the file is as it was, and
    /// the changes wait for the next call.
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
        bool isChanged; ///< else asked about
    };

    static STransferFailure readDisk(const QString& path, OnDisk& disk);
    static STransferFailure keepAside(const QString& path);
    QJsonObject merged(const QJsonObject& marks, const OnDisk& disk) const;

    bool m_isInUse = false;
    // By GUID, since the last read or save. Not in the JSON object: each insertion moves what is
    // behind it, so that asking for a whole catalogue would take the square of its size.
    QHash<QString, Mark> m_own;
};
