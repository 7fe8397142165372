#pragma once

#include <QCoreApplication>
#include <QString>

/// Favourites as one JSON file, to be carried to another computer:
///
///     {"format": 1, "favourites": [{"kind": "theme", "guid": "{...}", "name": "White Christmas"}]}
///
/// The kinds are "theme", "filter" and "background". Names are for people; they are not read.
class FavouritesFile
{
    Q_DECLARE_TR_FUNCTIONS(FavouritesFile)

public:
    /// Writes the favourites, also such as the catalogue does not hold at present, atomically. They
    /// must have been saved. False: errorText().
    bool write(const QString& path);
    /// Adds the favourites of a file to those of the catalogue, also such as the catalogue does not
    /// hold at present. False, and nothing is changed: errorText().
    bool read(const QString& path);

    /// Returns how many favourites have been written or read.
    int count() const { return m_count; }
    /// Returns how many of those read the catalogue does not hold.
    int unknown() const { return m_unknown; }
    QString errorText() const { return m_error; }

private:
    bool fail(const QString& text);

    int m_count = 0;
    int m_unknown = 0;
    QString m_error;
};
