// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>
#include <QDateTime>
#include <QString>
#include <QStringList>
#include <QtGlobal>

/// The record that an upload leaves at its remote for each release, which tells later uploads what
/// may be there. A value type.
///
///     {
///         "since": "2026-11-22T11:00:00Z",
///         "list": "9f86d0…",
///         "release": "60303a…",
///         "serial": 1795345200,
///         "unknown": ["display/Themes/film.png"]
///     }
///
/// It is written before the upload's first file; at its end "since" replaces "unknown".
struct UploadRecord
{
    qint64 m_serial = 0;
    QByteArray m_releaseDigest; ///< of release.json, see ContentDigest
    QByteArray m_listDigest;    ///< of files.txt
    QDateTime m_since;          ///< UTC; invalid until clients have been able to see the release
    /// Listed files that were at the remote before, with a content that no release told.
    QStringList m_unknown;

    /// Returns "ResourceConfig/releases/SERIAL.json".
    static QString path(qint64 serial);
    /// Returns the serial of a path that path() returns; 0 for any other.
    static qint64 serialOf(const QString& path);

    /// Reads a record. Returns false for anything else, such as the beginning of one.
    static bool parse(const QByteArray& json, UploadRecord& out);
    QByteArray toJson() const;

    static constexpr qint64 maxBytes = 64 * 1024 * 1024;
};
