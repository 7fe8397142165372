// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "download/ReleaseList.h"
#include "download/SRelease.h"
#include "upload/UploadRecord.h"

#include <QByteArray>
#include <QHash>
#include <QMap>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>
#include <QVector>

class Rclone;

/// A published tree where rclone reaches it.
class UploadPlace
{
public:
    /// `remote` is the root of the tree, as rclone understands it. `rclone` must outlive this
    /// object.
    UploadPlace(Rclone& rclone, QString remote);

    /// Returns why the last operation failed, as rclone says it.
    QString errorText() const;

    /// Reads which files there are, the release in force and the records of uploads. A remote
    /// folder that does not exist is empty. On false see errorText().
    bool read();
    /// Reads which contents and records there are now; the rest of this object stays as it is. On
    /// false see errorText().
    bool readAgain(QHash<QString, qint64>& files);

    /// Returns the sizes of the files by name.
    const QHash<QString, qint64>& files() const { return m_files; }
    bool hasRelease() const { return !m_releaseDigest.isEmpty(); }
    const SRelease& release() const { return m_release; }
    /// Returns the digest of release.json; empty without a valid one.
    const QByteArray& releaseDigest() const { return m_releaseDigest; }
    /// Returns the complete records by serial.
    const QMap<qint64, UploadRecord>& records() const { return m_records; }

    /// Fetches the lists with these digests; those that are missing or damaged are left out. On
    /// false see errorText().
    bool fetchLists(const QVector<QByteArray>& digests, QHash<QByteArray, ReleaseList>& lists);

    /// Sends files, of which each replaces one of its name; `from` is the local folder. On false
    /// see errorText().
    bool send(const QString& from, const QStringList& files, const QString& cacheControl);
    /// Sends one file with this content. On false see errorText().
    bool sendBytes(const QString& name, const QByteArray& content, const QString& cacheControl);
    /// Returns which of the files have another content at the remote, or none, by checksum or, if
    /// the remote has none, by size. On false see errorText().
    bool compare(const QString& from, const QStringList& files, QStringList& different);
    /// Deletes files. On false see errorText().
    bool remove(const QStringList& files);

private:
    bool run(QStringList command, const QStringList& files, QByteArray* out = nullptr);
    bool list(const QStringList& filters, QHash<QString, qint64>& files);
    bool fetch(const QStringList& files);
    bool readFetched(const QString& name, qint64 maxBytes, QByteArray& bytes) const;
    void readRelease();
    void readRecords();
    bool write(const QString& name, const QByteArray& content);

    Rclone& m_rclone;
    QString m_remote;
    QTemporaryDir m_work;
    QHash<QString, qint64> m_files;
    SRelease m_release;
    QByteArray m_releaseDigest;
    QMap<qint64, UploadRecord> m_records;
    QString m_error; // of the temporary folder
};
