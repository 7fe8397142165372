// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "download/ReleaseList.h"
#include "upload/UploadPlace.h"

#include <QByteArray>
#include <QDateTime>
#include <QHash>
#include <QSet>
#include <QString>
#include <QStringList>

class Rclone;

/// Decides which files of a remote tree no client needs any longer, from the records of uploads.
///
/// A release is forgotten once one after it has been in force for long enough. Its files go, unless
/// another release names them, and with it everything under "content" that no release names.
class Pruning
{
public:
    Pruning(Rclone& rclone, const QString& remote);

    /// Reads the remote; forgets the releases that were replaced before `oldest`. On false see
    /// errorText().
    bool prepare(const QDateTime& oldest);
    /// Returns what can be removed, sorted.
    const QStringList& files() const { return m_files; }
    /// Returns the size of these files.
    qint64 bytes() const { return m_bytes; }

    /// Removes the files. On false see errorText().
    bool run();

    QString errorText() const { return m_error; }

private:
    bool keepNames(const QHash<QByteArray, ReleaseList>& lists, qint64 first);
    void forgetNames(const QHash<QByteArray, ReleaseList>& lists, qint64 first);
    bool fail(const QString& text);

    UploadPlace m_remote;
    QSet<QString> m_kept; // names
    QStringList m_files;
    qint64 m_bytes = 0;
    QString m_error;
};
