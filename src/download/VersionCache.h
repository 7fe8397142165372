#pragma once

#include "host/SValidators.h"

#include <QByteArray>
#include <QString>

/// The server's version file as it was last fetched, with its validators, so that a check can ask
/// whether it has changed instead of fetching it again. Internal to the library; stateless.
///
/// It is one file in the download tree, written atomically. A missing, damaged or foreign one is
/// ignored: the check then fetches the version file.
class VersionCache
{
public:
    struct Entry
    {
        SValidators validators; ///< empty if there is no usable entry
        QByteArray content;
    };

    VersionCache() = delete;

    /// Returns the entry for a version file at that address.
    static Entry read(const QString& url);
    /// Replaces the entry, if the server has sent reliable validators.
    static void store(const QString& url, const Entry& entry);
};
