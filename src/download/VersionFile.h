// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "download/SCatalogueVersion.h"
#include "records/MvResourceExport.h"

#include <QString>

/// Reads the version files with which a resource server and an installation announce their
/// catalogue. Any thread.
class MVRESOURCE_EXPORT VersionFile
{
public:
    VersionFile() = delete;

    /// Largest version file that is read.
    static constexpr qint64 maxBytes = 64 * 1024;

    /// Reads a version file of at most maxBytes. An unreadable one sets `out` to
    /// SCatalogueVersion::none(); a missing checksum leaves that of `out` unchanged.
    static void read(const QString& file, SCatalogueVersion& out);
};
