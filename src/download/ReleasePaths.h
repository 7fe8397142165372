// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "records/MvResourceExport.h"

#include <QByteArray>
#include <QString>

/// The names under which a server publishes a release, relative to its root. Any thread.
class MVRESOURCE_EXPORT ReleasePaths
{
public:
    ReleasePaths() = delete;

    /// Returns "ResourceConfig/release.json", the only name whose content changes.
    static QString release();
    /// Returns the name of the detached signature beside it, where `minisign -V` looks for it.
    static QString signature();
    /// Returns "ResourceConfig/files.txt", see ReleaseList.
    static QString list();

    /// Returns the folder of the published contents, without slashes.
    static QString contentFolder();
    /// Returns the name of a published content: "content/ab/abcdef…" for the digest "abcdef…".
    static QString content(const QByteArray& digest);
    /// Returns where clients fetch the signature of the release.json that has this digest, so that
    /// they never meet one release with the signature of another.
    static QString signatureOf(const QByteArray& releaseDigest);
};
