#pragma once

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

    /// Renames over the target; every write was checked. False: the target is as it was, the file
    /// is removed.
    bool commit();

    /// Removes the file; the destructor does the same with one that was not committed.
    void discard();

    QString errorText() const { return m_error; }

    /// Removes the part files in `folder` that no living writer holds.
    static void removeLeftovers(const QString& folder);

private:
    bool createLocked();
    bool fail(const QString& reason);

    QString m_target;
    QFile m_file;
    qint64 m_size = 0;
    QString m_error;
};
