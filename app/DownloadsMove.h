// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "host/CancelToken.h"

#include <QCoreApplication>
#include <QString>
#include <QStringList>
#include <QtGlobal>

#include <functional>

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
/// links stay. On one file system the files are linked, otherwise copied and compared. A kill
/// leaves the originals complete, or the new root.
///
/// No download may run meanwhile. One thread at a time.
class DownloadsMove
{
    Q_DECLARE_TR_FUNCTIONS(DownloadsMove)

public:
    enum class End {
        Complete,
        Cancelled, ///< nothing has changed
        Failed,    ///< nothing has changed; see errorText()
    };
    /// Takes the bytes that are in the new root and those of all files.
    using Progress = std::function<void(qint64 doneBytes, qint64 totalBytes)>;

    /// Both are absolute paths of download roots; `to` is created if it is missing.
    DownloadsMove(const QString& from, const QString& to);

    /// Returns whether a download root holds any file.
    static bool holdsAny(const QString& root);

    /// Brings all files to the new root. A file that is there must have the same content.
    End bring(const CancelToken& cancel, const Progress& progress);
    QString errorText() const { return m_error; }

    /// Removes the originals and the folders that are then empty. Returns how many files it could
    /// not remove.
    int removeOriginals();
    /// Removes what bring() has brought.
    void takeBack();

private:
    enum class Step { Done, Cancelled, Failed };

    bool areApart();
    void list();
    Step bringFile(const QString& name, const CancelToken& cancel, const Progress& progress);
    Step copy(const QString& source, const QString& target, const CancelToken& cancel,
              const Progress& progress);
    Step verify(const QString& source, const QString& target, const CancelToken& cancel);
    End give(End end);
    Step fail(const QString& error);
    static void removeEmptyFolders(const QString& folder);

    QString m_from;        // the folder of downloads in the old root
    QString m_to;          // and in the new one
    QStringList m_files;   // relative paths
    QStringList m_brought; // those that bring() has created
    qint64 m_totalBytes = 0;
    qint64 m_doneBytes = 0;
    bool m_canLink = true; // no link has failed yet
    QString m_error;
};
