// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "records/MvResourceExport.h"

#include <QByteArray>
#include <QDateTime>
#include <QString>
#include <QtGlobal>

/// The content of a release.json: one state of a server tree. A value type.
///
///     {
///         "catalogue": "1.0.2",
///         "expires": "2027-02-20T11:00:00Z",
///         "format": 1,
///         "list": { "sha256": "9f86d0…", "size": 48213 },
///         "published": "2026-11-22T11:00:00Z",
///         "serial": 1795345200
///     }
///
/// "expires" may be missing; unknown members are ignored, so later formats can add some without
/// another number.
struct MVRESOURCE_EXPORT SRelease
{
    /// The value of "format" that this version reads.
    static constexpr int knownFormat = 1;
    /// Largest release.json that is read.
    static constexpr qint64 maxBytes = 4 * 1024;
    /// The largest serial: JSON numbers are exact up to 2^53.
    static constexpr qint64 maxSerial = Q_INT64_C(9007199254740991);

    qint64 m_serial = 0;          ///< 1 to maxSerial; grows with every release
    QString m_qsCatalogueVersion; ///< that of the version files, such as "1.0.2"
    QDateTime m_published;        ///< UTC
    QDateTime m_expires;          ///< UTC; invalid: never
    qint64 m_listBytes = 0;       ///< size of files.txt
    QByteArray m_listDigest;      ///< SHA-256 of files.txt, see ContentDigest

    /// Reads a release.json. Returns false, with the reason in `error`, for anything except a
    /// release of the known format with plausible values; `out` is then unchanged.
    static bool parse(const QByteArray& json, SRelease& out, QString& error);
    /// Returns the text of release.json; equal values give equal bytes.
    QByteArray toJson() const;
};
