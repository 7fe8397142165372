// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "records/MvResourceExport.h"

#include <QString>

/// Exports and imports the catalogue's favourites as one JSON file, for moving them to another
/// computer:
///
///     {"format": 1, "favourites": [{"kind": "theme", "guid": "{...}", "name": "White Christmas"}]}
///
/// The kinds are "theme", "filter" and "background". Names are for people and are not read. GUI
/// thread only.
class MVRESOURCE_EXPORT FavouritesFile
{
public:
    /// Reasons why write() or read() failed.
    enum class Error {
        None,
        CannotWrite,   ///< see reason()
        CannotRead,    ///< see reason()
        NotFavourites, ///< the file has another format
        BadEntry,      ///< it contains an entry that is not a favourite
    };

    /// Writes the favourites, including those that the catalogue does not currently contain. Save
    /// them first, see MVThemeMgr::saveFavourites(). Replaces an existing file atomically; data and
    /// name are on the disk when it returns. A link is followed. On false see error(); an existing
    /// file is unchanged.
    bool write(const QString& path);
    /// Adds the favourites in a file to the catalogue's, including those that it does not currently
    /// contain. On false, see error(); nothing is changed. Reads at most 16 MiB.
    bool read(const QString& path);

    /// Returns how many favourites were written or read.
    int count() const { return m_count; }
    /// Returns how many of the favourites read are not in the catalogue.
    int unknown() const { return m_unknown; }

    /// Returns why the last call failed.
    Error error() const { return m_error; }
    /// Returns the system's reason for the last failure; empty if there is none.
    QString reason() const { return m_reason; }
    /// Returns the same as an English sentence; empty after a successful call.
    QString errorText() const;

private:
    bool fail(Error error, const QString& path, const QString& reason = QString());

    int m_count = 0;
    int m_unknown = 0;
    Error m_error = Error::None;
    QString m_path;
    QString m_reason;
};
