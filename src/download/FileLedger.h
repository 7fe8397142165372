// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "host/SPublishedContent.h"

#include <QByteArray>
#include <QHash>
#include <QMutex>
#include <QString>
#include <QtGlobal>

/// The digests that the files of the download root had when they came, so that whether a file is
/// the published one is known without reading it. Internal to the library; one per process, any
/// thread.
///
/// The text file "ledger.txt" beside the catalogue has a line per file: SHA-256, size, time of
/// modification in milliseconds since 1970, and path below the root, separated by tabs; the last
/// line of a path counts. An entry counts only while size and time of its file are the noted ones.
/// Lines are appended, so that several processes may write; what cannot be read is ignored, and the
/// files are hashed again. Nothing in it is believed of a content that is to be verified.
class FileLedger
{
public:
    static FileLedger* instance();
    FileLedger() = default;
    Q_DISABLE_COPY_MOVE(FileLedger)

    /// Records the content of a file that has just been stored; does nothing if it is unknown.
    void note(const QString& path, const SPublishedContent& content);
    /// Returns the digest with which a file has come or was last hashed; empty if that is unknown,
    /// or the file has changed since.
    QByteArray digestOf(const QString& path);
    /// Returns the digest with which a file has come, even if it has changed since; empty if that
    /// is unknown.
    QByteArray noteOf(const QString& path);
    /// Records that a file has changed since its digest was noted although its size and time have
    /// not: digestOf() no longer knows it, noteOf() does.
    void doubt(const QString& path);
    /// Rewrites the file with one line per file that still exists; leaves a file that cannot be
    /// read.
    void compact();

    /// Returns the path of the file.
    static QString path();

private:
    struct Entry
    {
        QByteArray digest;
        qint64 sizeBytes = 0;
        qint64 modifiedMs = 0;
    };

    bool readNew();
    void takeLine(const QByteArray& line);
    void append(const QString& path, const Entry& entry);
    static QByteArray lineOf(const QByteArray& name, const Entry& entry);
    static QByteArray nameOf(const QString& path);

    QMutex m_mutex;                     // guards all below
    QString m_file;                     // whose lines have been read
    qint64 m_readBytes = 0;             // of that file
    QHash<QByteArray, Entry> m_entries; // by the path below the root
};
