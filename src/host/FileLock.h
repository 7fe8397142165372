#pragma once

#include "host/CancelToken.h"
#include "host/MvHostExport.h"

#include <QLockFile>
#include <QString>

#include <chrono>

/// Lock file that keeps processes apart which work on one file or folder.
///
/// The lock of a process that has died is broken; that of a living one never, however long it
/// works. Objects belong to one thread. The destructor unlocks.
class MVHOST_EXPORT FileLock
{
public:
    enum class Result {
        Locked,
        Busy,         // another process, or another object of this one, has it
        CannotCreate, // the folder is missing or cannot be written
        Cancelled
    };

    /// Prepares the lock file `path`, whose folder must exist by the time of lock().
    explicit FileLock(const QString& path);

    /// Waits for the lock, but at most for `longest` and only until `cancel` is cancelled. Asks
    /// often enough to get its turn among many that wait.
    Result lock(std::chrono::milliseconds longest, const CancelToken& cancel = CancelToken());

    /// Waits for the lock until `cancel` is cancelled.
    Result lock(const CancelToken& cancel);

private:
    QLockFile m_file;
};
