// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "host/MvHostExport.h"

#include <QByteArray>
#include <QPair>
#include <QString>

#include <cerrno>

/// The operations on files that Qt does not offer and that every system has in its own way: atomic
/// renames, locks that end with their process, flushes, opening without waiting.
///
/// Handles are those of the C library, so QFile::open(int) takes them. On Windows they share a file
/// with everybody, so that it can be renamed and removed while it is open, as elsewhere. Functions
/// that fail set errno to a value that std::strerror() explains, on every system. Stateless, any
/// thread.
class MVHOST_EXPORT SystemFile
{
public:
    SystemFile() = delete;

    /// Returns a name as the other functions take it: in the encoding of the file system, or in
    /// UTF-8 on Windows.
    static QByteArray encodedName(const QString& name);
    /// Returns the name that encodedName() has encoded.
    static QString decodedName(const QByteArray& name);

    /// Users who may read a new file.
    enum class Readers {
        Usual,    ///< as the system, the folder and the user's umask have it
        Everyone, ///< whatever the umask
        Owner,    ///< nobody else, and nobody else may write it
    };
    /// Creates a file that did not exist, for reading and writing. Returns its handle, or -1.
    static int create(const QByteArray& name, Readers readers = Readers::Usual);
    /// Opens a file for reading and writing, and creates it if it is missing. Fails for a link, and
    /// on Windows with EBUSY where another program shares it with nobody. Returns its handle, or
    /// -1.
    static int openOrCreate(const QByteArray& name);

    /// Ways to open a file.
    enum class Access {
        Read,
        ReadWrite, ///< creates a missing file
        Append,    ///< likewise, and every write goes to its end
    };
    /// Opens a regular file, following links. Never waits: a pipe without a writer or a device is
    /// refused. Returns its handle, or -1; errno is 0 then for anything but a regular file.
    static int openRegular(const QByteArray& name, Access access);

    /// Closes a handle, which releases its lock.
    static void close(int handle);

    /// Writes everything at that position. Does not use the handle's own position, so other threads
    /// may read from the same handle meanwhile.
    static bool writeAt(int handle, const char* data, qint64 length, qint64 position);
    /// Reads at most `length` bytes from that position. Returns how many, 0 at the end and -1 on
    /// failure.
    static qint64 readAt(int handle, char* data, qint64 length, qint64 position);
    /// Reads at most `length` bytes from the handle's own position; waits for those of pipes and
    /// terminals. Returns how many, 0 at the end and -1 on failure.
    static qint64 readNext(int handle, char* data, qint64 length);
    /// Empties the file.
    static bool truncate(int handle);

    /// Outcomes of lock().
    enum class Lock {
        Taken,      ///< by this call
        Held,       ///< by another handle, of this process or another
        Impossible, ///< on this file system
    };
    /// Takes the lock of an open file without waiting. It belongs to the handle and ends with it.
    static Lock lock(int handle);

    /// Returns whether the open file still has that name. False once it has been removed, even if
    /// another file now has its name.
    static bool hasName(int handle, const QByteArray& name);
    /// Returns false once the last name of the open file has been removed.
    static bool hasAnyName(int handle);
    /// Returns whether both names lead to one file, following links.
    static bool isSame(const QByteArray& first, const QByteArray& second);
    /// Returns whether the name leads to a folder, following links.
    static bool isFolder(const QByteArray& name);

    /// Returns whether the name itself is a symbolic link, or on Windows a junction or mount point.
    /// Unlike QFileInfo, takes no shortcut (.lnk) for a link.
    static bool isLink(const QString& name);

    /// Returns two numbers that no two files of the system share, following links: all names of one
    /// file give the same. Both are 0 if the file does not exist.
    static QPair<quint64, quint64> identity(const QByteArray& name);

    /// Returns the absolute path of a file or folder with all links followed, on Windows also
    /// junctions, which QFileInfo does not follow; empty if there is none.
    static QString realPath(const QString& name);

    /// Creates a folder that did not exist, with the permissions of `model`, or, if there is none,
    /// so that everyone may read it.
    static bool createFolder(const QByteArray& name, const QByteArray& model);

    /// Waits until the file's content is on the disk.
    static bool flush(int handle);
    /// Reports late failures: file systems that write after write() returns, such as NFS, report
    /// some only when a handle is closed. The handle stays open and locked.
    static bool hasTakenAllBytes(int handle);
    /// Waits until the folder's names are on the disk, where the file system can do that.
    static bool flushFolder(const QByteArray& folder);
    /// Waits until everything below the folder is on the disk.
    static bool flushTree(const QByteArray& folder);

    /// Renames atomically, also over an existing file.
    static bool rename(const QByteArray& from, const QByteArray& to);
    /// Renames atomically unless the new name exists, which fails with EEXIST. Fails with EINVAL or
    /// ENOSYS where the file system cannot do that.
    static bool renameToNew(const QByteArray& from, const QByteArray& to);
    /// Exchanges two folders atomically. Fails with EINVAL or ENOSYS where the system cannot.
    static bool exchange(const QByteArray& first, const QByteArray& second);
    /// Gives a file a second name. Fails with EEXIST if that exists.
    static bool link(const QByteArray& existing, const QByteArray& added);
    /// Removes the name of a file.
    static bool remove(const QByteArray& name);

    /// Returns whether an errno means that the disk, or the user's share of it, is full.
    static bool isFull(int error)
    {
#ifdef EDQUOT // not on Windows
        if (error == EDQUOT)
            return true;
#endif
        return error == ENOSPC;
    }
    /// Returns the errno that explains why no file or folder can be created in an existing folder:
    /// no permission, or no space. 0 if nothing speaks against it.
    static int obstacleIn(const QByteArray& folder);
};
