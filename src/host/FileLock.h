#pragma once

#include "host/CancelToken.h"
#include "host/MvHostExport.h"

#include <QByteArray>
#include <QString>

#include <chrono>

/// Lock file that keeps processes apart which work on one file or folder.
///
/// Only the kernel's lock on the file counts, which ends with the process that holds it: a process
/// that was killed bars nobody, whatever it left in the file, and a living one is respected however
/// long it works. A file system that knows no locks keeps nobody apart. Objects belong to one
/// thread; those of different threads keep each other out.
class MVHOST_EXPORT FileLock
{
public:
    enum class Result {
        Locked,
        Busy,         // another process, or another object of this one, has it
        CannotCreate, // error() tells why
        Cancelled
    };

    /// Prepares the lock file `path`, whose folder must exist by the time of lock().
    explicit FileLock(const QString& path);
    /// Releases the lock and removes the file.
    ~FileLock();
    Q_DISABLE_COPY_MOVE(FileLock)

    /// Waits for the lock, but at most for `longest` and only until `cancel` is cancelled. Asks
    /// often enough to get its turn among many that wait. Does nothing where it is locked already.
    Result lock(std::chrono::milliseconds longest, const CancelToken& cancel = CancelToken());

    /// Waits for the lock until `cancel` is cancelled.
    Result lock(const CancelToken& cancel);

    bool isLocked() const { return m_handle >= 0; }

    /// Returns the errno that the last Result::CannotCreate had, or 0.
    int error() const { return m_error; }

private:
    Result tryLock();

    QByteArray m_name; // as the file system takes it
    int m_handle = -1; // open while the lock is held
    int m_error = 0;
};
