// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "host/STransferFailure.h"

#include <QByteArray>
#include <QString>

#include <memory>

class ContentDigest;
class FollowingDigest;

/// A file that is written beside its target and renamed to the target when it is complete.
///
/// Until commit() the target keeps its content, even after a kill, since the bytes are in a file
/// with another name. That file is locked while its writer exists, so removeLeftovers() can tell
/// the remains of a killed process from a transfer by another thread or process. Internal to the
/// library; one thread at a time.
class PartFile
{
public:
    PartFile();
    ~PartFile();
    Q_DISABLE_COPY_MOVE(PartFile)

    /// Tells when to ask whether the target is a folder, which is refused: at once, or by commit()
    /// alone, which saves looking up the name of a file that is new.
    enum class FolderCheck { AtOnce, AtCommit };

    /// Starts a file for `target`, whose folder must exist. On false see errorText().
    bool open(const QString& target, FolderCheck check = FolderCheck::AtOnce);

    /// Starts a digest of what is written from now on.
    void startDigest();
    /// Returns that digest, see ContentDigest; empty if there is none.
    QByteArray digest() const;

    /// Appends; returns false if not every byte could be written.
    bool write(const char* data, qint64 length);

    /// Empties the file, to start over.
    bool restart();

    /// Returns the bytes written since open() or restart().
    qint64 size() const { return m_size; }

    /// Returns the path of the temporary file, for inspecting its content before commit().
    QString temporaryPath() const;
    /// Number of leading bytes that beginning() keeps.
    static constexpr int beginningBytes = 1024;
    /// Returns the first bytes written so far, at most beginningBytes.
    const QByteArray& beginning() const { return m_beginning; }

    /// Sets whether commit() waits until data and name are on the disk, so that a power failure
    /// leaves either the old file or the new one.
    enum class Flush { No, Yes };

    /// Renames over the target; every write was checked. On false the target is unchanged and the
    /// file is removed.
    bool commit(Flush flush = Flush::No);

    /// Removes the file; the destructor does so for an uncommitted one.
    void discard();

    QString errorText() const { return m_error; }
    /// Returns why the last operation failed: no space, no permission, or another problem with the
    /// file.
    EFailureCause cause() const { return m_eCause; }

    /// Removes the part files in `folder` that no living writer has locked. Returns whether it
    /// contains folders or links.
    static bool removeLeftovers(const QString& folder);

private:
    void addToDigest(const char* data, qint64 length);
    bool createLocked();
    void keepBeginning(const char* data, qint64 length);
    bool rename();
    void close();
    bool failAsFolder();
    bool failWith(int error);
    bool fail(EFailureCause cause, const QString& reason);

    QString m_target;
    QByteArray m_path; // of the target, in the encoding of the file system
    QByteArray m_name; // of the temporary file, likewise
    FolderCheck m_check = FolderCheck::AtOnce;
    int m_handle = -1; // open for writing; -1: no temporary file
    qint64 m_size = 0;
    std::unique_ptr<ContentDigest> m_digest;      // null: not wanted, or m_following
    std::unique_ptr<FollowingDigest> m_following; // of a large file
    QByteArray m_beginning;
    EFailureCause m_eCause = eFailure_None;
    QString m_error;
};
