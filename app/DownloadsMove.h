// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "host/CancelToken.h"
#include "MoveJournal.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QString>
#include <QStringList>
#include <QtGlobal>
#include <QVector>

#include <functional>
#include <memory>

class FileLock;

/// Moves what has been downloaded from one download root to another, in two steps between which
/// every file is in both:
///
///     DownloadsMove move(from, to);
///     if (move.bring(token, progress) == DownloadsMove::End::Complete && useFromNowOn(to))
///         move.removeOriginals();
///     else
///         move.takeBack();
///
/// Only the folder of a root that holds downloads is moved: what else is in the root stays, and
/// links stay. On one file system files are linked, unless they grow in place; otherwise they are
/// copied and compared. A kill
/// leaves the originals complete, or the new root; a new move between the same folders resumes a
/// killed one, even if originals have changed since.
///
/// No download may run meanwhile in this process. Updates of other processes wait; what such a
/// process changes in the old root although the move goes on stays there. One thread at a time.
class DownloadsMove
{
    Q_DECLARE_TR_FUNCTIONS(DownloadsMove)

public:
    enum class End {
        Complete,
        Cancelled, ///< the originals are untouched
        Failed,    ///< the originals are untouched; see errorText()
    };
    /// Takes the bytes that are in the new root and those of all files.
    using Progress = std::function<void(qint64 doneBytes, qint64 totalBytes)>;

    /// Both are absolute paths of download roots; `to` is created if it is missing.
    DownloadsMove(const QString& from, const QString& to);
    /// Lets other processes use the old root again.
    ~DownloadsMove();
    Q_DISABLE_COPY_MOVE(DownloadsMove)

    /// Returns whether both are one folder, perhaps under two names.
    static bool isSame(const QString& root, const QString& other);
    /// Returns whether a download root holds any file.
    static bool holdsAny(const QString& root);

    /// Brings all files to the new root, and waits until they are on its disk. A file that is there
    /// must have the same content, or be the copy of an earlier original that a killed move has
    /// left; links there are refused, since downloads do not follow them.
    End bring(const CancelToken& cancel, const Progress& progress);
    QString errorText() const { return m_error; }

    /// Removes the originals and the folders that are then empty. Returns how many files it could
    /// not remove, or has left because they have changed since bring() began.
    int removeOriginals();
    /// Removes what bring() has brought, and the folders that it has created. What a killed move
    /// has left stays for the next one.
    void takeBack();

private:
    enum class Step { Done, Different, Cancelled, Failed };
    struct File
    {
        QString name; // its path below the folder of downloads
        qint64 sizeBytes;
        QDateTime modified;
    };

    bool areApart() const;
    bool lock();
    void list();
    bool makeFolder(const QString& folder);
    bool startJournal();
    Step bringAll(const CancelToken& cancel, const Progress& progress);
    Step bringFile(const File& file, const CancelToken& cancel, const Progress& progress);
    bool link(const QString& name);
    Step copy(const QString& source, const QString& target, const CancelToken& cancel,
              const Progress& progress);
    Step verify(const QString& source, const QString& target, const QString& textIfDifferent,
                const CancelToken& cancel);
    Step fail(const QString& error);
    static void removeEmptyFolders(const QString& folder);

    QString m_root;        // the new root
    QString m_from;        // the folder of downloads in the old root
    QString m_to;          // and in the new one
    QString m_lockName;    // of the lock file, below the folder of downloads
    QStringList m_growing; // names of files that must not be linked
    QVector<File> m_files; // those to be moved
    QStringList m_brought; // names of those that bring() has created
    QStringList m_created; // folders that bring() has created, outer ones first
    qint64 m_totalBytes = 0;
    qint64 m_doneBytes = 0;
    bool m_canLink = true; // no link has failed yet
    QString m_error;
    std::unique_ptr<MoveJournal> m_journal; // of the new root; null before a file is brought
    bool m_isResumed = false;               // a killed move has left copies
    std::unique_ptr<FileLock> m_lock;       // of the old root, from bring() to the end
};
