// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "host/STransferFailure.h"

#include <QByteArray>
#include <QString>

#include <memory>

class ContentDigest;
class FollowingDigest;
class QFile;

/// A file that is written beside its target and becomes the target when it is complete.
///
/// Until commit() the target keeps its content, even after a kill, since the bytes are in another
/// file. If that has a name, it is locked while its writer exists, so removeLeftovers() can tell
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

    /// The name of the file before commit().
    enum class Temporary {
        Named,
        /// None, where the system can do that: a kill leaves nothing before the name is given, and
        /// a target that does not exist takes fewer operations. One that exists takes more.
        Unnamed,
    };

    /// Starts a file for `target`, whose folder must exist. On false see errorText().
    bool open(const QString& target, FolderCheck check = FolderCheck::AtOnce,
              Temporary temporary = Temporary::Named);

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

    /// Opens what has been written, for inspecting it before commit().
    bool openContent(QFile& content) const;
    /// Number of leading bytes that beginning() keeps.
    static constexpr int beginningBytes = 1024;
    /// Returns the first bytes written so far, at most beginningBytes.
    const QByteArray& beginning() const { return m_beginning; }

    /// Sets whether commit() waits until data and name are on the disk, so that a power failure
    /// leaves either the old file or the new one.
    enum class Flush { No, Yes };

    /// Replaces the target; every write was checked. On false the target is unchanged and the file
    /// is removed.
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
    QByteArray folder() const;
    bool createLocked();
    bool nameBeside();
    bool nameTarget();
    void keepBeginning(const char* data, qint64 length);
    bool rename();
    bool replaceTarget();
    void close();
    bool failAsFolder();
    bool failWith(int error);
    bool fail(EFailureCause cause, const QString& reason);

    QString m_target;
    QByteArray m_path; // of the target, in the encoding of the file system
    QByteArray m_name; // of the temporary file, likewise; empty: it has none
    FolderCheck m_check = FolderCheck::AtOnce;
    int m_handle = -1; // open for writing; -1: no file
    qint64 m_size = 0;
    std::unique_ptr<ContentDigest> m_digest;      // null: not wanted, or m_following
    std::unique_ptr<FollowingDigest> m_following; // of a large file
    QByteArray m_beginning;
    EFailureCause m_eCause = eFailure_None;
    QString m_error;
};
