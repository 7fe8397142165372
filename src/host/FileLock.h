// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "host/CancelToken.h"
#include "host/MvHostExport.h"

#include <QByteArray>
#include <QString>

#include <chrono>

/// A lock file that excludes other processes from working on the same file or folder.
///
/// Only the kernel's lock on the file counts, which ends with its process: a killed process blocks
/// nobody, whatever it left in the file, and a living one is respected however long it works. A
/// file system without locks excludes nobody. Objects belong to one thread; those of different
/// threads exclude each other.
class MVHOST_EXPORT FileLock
{
public:
    /// Outcomes of lock().
    enum class Result {
        Locked,
        Busy,         // held by another process, or another object of this one
        CannotCreate, // error() tells why
        Cancelled
    };

    /// Prepares the lock file `path`, whose folder must exist by the time of lock().
    explicit FileLock(const QString& path);
    /// Releases the lock and removes the file.
    ~FileLock();
    Q_DISABLE_COPY_MOVE(FileLock)

    /// Waits for the lock, for at most `longest` and until `cancel` is cancelled. Polls often
    /// enough to succeed among many waiters. Does nothing if it is already locked.
    Result lock(std::chrono::milliseconds longest, const CancelToken& cancel = CancelToken());

    /// Waits for the lock until `cancel` is cancelled.
    Result lock(const CancelToken& cancel);

    /// Returns whether this object holds the lock.
    bool isLocked() const { return m_handle >= 0; }

    /// Returns the errno of the last Result::CannotCreate, or 0.
    int error() const { return m_error; }

private:
    Result tryLock();

    QByteArray m_name; // in the encoding of the file system
    int m_handle = -1; // open while the lock is held
    int m_error = 0;
};
