// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>
#include <QDateTime>
#include <QSet>
#include <QString>
#include <QtGlobal>

/// Remembers in a folder which of its files are copies that a move has brought, so that a move
/// that was killed can be told from other downloads.
///
/// The text file has the folder from which the files come on its first line, then a line per copy:
/// size, time of modification and name, separated by tabs. A file is such a copy only as long as it
/// has that size and time.
class MoveJournal
{
public:
    /// The file in the folder.
    static QString fileName();

    /// Reads what the moves from `source` into `folder` have noted; empty if the journal belongs to
    /// another source or cannot be read.
    MoveJournal(const QString& folder, const QString& source);

    /// Returns whether no copy is noted.
    bool isEmpty() const { return m_copies.isEmpty(); }
    /// Returns whether a file of the folder is a noted copy that nobody has changed.
    bool isCopy(const QString& name) const;
    /// Notes a file that is about to be brought, by the size and time of its original.
    void note(const QString& name, qint64 sizeBytes, const QDateTime& modified);

    /// Stores what is noted. Returns false if that fails.
    bool store() const;
    void remove() const;

private:
    QString path() const;

    QString m_folder;
    QByteArray m_source;       // as in the file
    QSet<QByteArray> m_copies; // lines
};
