#pragma once

#include <QString>

/// A lock file that one process holds at a time.
///
/// The kernel's lock on the open file counts, and neither the file nor its content: it ends with
/// the process, however that ends, and is taken in one step. A process number in the file would be
/// missing if its writer was killed before it wrote it, and may belong to another process by now.
class FolderLock
{
public:
    enum class Result {
        Taken,
        Held,   ///< by another process, or by another object
        Failed, ///< errno says why
    };

    explicit FolderLock(const QString& file);
    /// Removes the file and releases the lock.
    ~FolderLock();
    Q_DISABLE_COPY_MOVE(FolderLock)

    /// Does not wait. Taken if this object has it already.
    Result take();
    bool isTaken() const { return m_handle >= 0; }

private:
    QString m_file;
    int m_handle = -1;
};
