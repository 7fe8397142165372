#pragma once

#include "download/SCatalogueVersion.h"
#include "records/MvResourceExport.h"

#include <QString>

/// Reads the files in which a resource server and an installation announce their catalogue. Any
/// thread.
class MVRESOURCE_EXPORT VersionFile
{
public:
    VersionFile() = delete;

    static constexpr qint64 maxBytes = 64 * 1024;

    /// Reads a version file of at most maxBytes. One that cannot be read makes `out`
    /// SCatalogueVersion::none(); a checksum that is missing leaves that of `out` as it is.
    static void read(const QString& file, SCatalogueVersion& out);
};
