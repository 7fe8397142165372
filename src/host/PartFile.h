#pragma once

#include "host/STransferFailure.h"

#include <QFile>
#include <QString>

/// A file that is being written beside its target and takes the target's name when it is complete.
///
/// Until commit() the target name keeps what it held; after a kill too, since the bytes stand under
/// a name of their own. That file is locked while its writer lives, so removeLeftovers() can tell
/// the remains of a killed process from a transfer that another thread or process is busy with.
/// Internal to the library; one thread at a time.
class PartFile
{
public:
    PartFile() = default;
    ~PartFile();
    Q_DISABLE_COPY_MOVE(PartFile)

    /// Starts a file for `target`, whose folder must exist. False: errorText() says why.
    bool open(const QString& target);

    /// Appends; false if not every byte could be written.
    bool write(const char* data, qint64 length);

    /// Empties the file, to begin again.
    bool restart();

    /// Bytes written since open() or restart().
    qint64 size() const { return m_size; }

    /// Path of the temporary file, for a look at its content before commit().
    QString temporaryPath() const { return QFile::decodeName(m_name); }
    /// Returns the first bytes written so far, `maxBytes` at most.
    QByteArray beginning(int maxBytes) const;

    /// Sets whether commit() waits until data and name are on the disk, so that a power cut leaves
    /// the old file or the new one.
    enum class Flush { No, Yes };

    /// Renames over the target; every write was checked. False: the target is as it was, the file
    /// is removed.
    bool commit(Flush flush = Flush::No);

    /// Removes the file; the destructor does the same with one that was not committed.
    void discard();

    QString errorText() const { return m_error; }
    /// Returns why the last operation failed: no space, no permission, or anything else about the
    /// file.
    EFailureCause cause() const { return m_eCause; }

    /// Removes the part files in `folder` that no living writer holds.
    static void removeLeftovers(const QString& folder);

private:
    bool createLocked();
    void close();
    bool failWith(int error);
    bool fail(EFailureCause cause, const QString& reason);

    QString m_target;
    QByteArray m_name; // of the temporary file, as the file system takes it
    int m_handle = -1; // open for writing; -1: there is no temporary file
    qint64 m_size = 0;
    EFailureCause m_eCause = eFailure_None;
    QString m_error;
};
