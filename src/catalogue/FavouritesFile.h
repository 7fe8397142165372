#pragma once

#include "records/MvResourceExport.h"

#include <QString>

/// Exports and imports the favourites of the catalogue as one JSON file, to be carried to another
/// computer:
///
///     {"format": 1, "favourites": [{"kind": "theme", "guid": "{...}", "name": "White Christmas"}]}
///
/// The kinds are "theme", "filter" and "background". Names are for people; they are not read. GUI
/// thread only.
class MVRESOURCE_EXPORT FavouritesFile
{
public:
    enum class Error {
        None,
        CannotWrite,   ///< reason() says why
        CannotRead,    ///< reason() says why
        NotFavourites, ///< the file has another format
        BadEntry,      ///< it holds an entry that is no favourite
    };

    /// Writes the favourites, also such as the catalogue does not hold at present, atomically.
    /// Save them first, see MVThemeMgr::saveFavourites(). False: see error().
    bool write(const QString& path);
    /// Adds the favourites of a file to those of the catalogue, also such as the catalogue does not
    /// hold at present. False, and nothing is changed: see error(). At most 16 MiB are read.
    bool read(const QString& path);

    /// Returns how many favourites have been written or read.
    int count() const { return m_count; }
    /// Returns how many of those read the catalogue does not hold.
    int unknown() const { return m_unknown; }

    /// Returns why the last call failed, and the system's reason if there is one.
    Error error() const { return m_error; }
    QString reason() const { return m_reason; }
    /// Returns the same as a sentence in English; empty after a call that succeeded.
    QString errorText() const;

private:
    bool fail(Error error, const QString& path, const QString& reason = QString());

    int m_count = 0;
    int m_unknown = 0;
    Error m_error = Error::None;
    QString m_path;
    QString m_reason;
};
