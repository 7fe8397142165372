// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "records/MvResourceExport.h"

#include <QByteArray>
#include <QString>
#include <QtGlobal>
#include <QVector>

/// The files of a release with their digests: the content of a files.txt. A value type.
///
/// One line per file, which ends in LF: SHA-256, size in bytes and path below the server root,
/// separated by tabs, in UTF-8, sorted by the bytes of the path. A path has no empty, "." or ".."
/// component, no backslash, colon or control character, and does not begin with "/".
class MVRESOURCE_EXPORT ReleaseList
{
public:
    /// Largest list that parse() reads.
    static constexpr qint64 maxBytes = 64 * 1024 * 1024;
    /// Most files that a list may have.
    static constexpr int maxFiles = 500 * 1000;
    /// Longest path that a list may have, in UTF-8.
    static constexpr int maxPathBytes = 1024;

    /// One file of a release.
    struct Entry
    {
        QByteArray digest;    ///< see ContentDigest
        qint64 sizeBytes = 0; ///< of the content
        QByteArray path;      ///< UTF-8

        /// Returns whether this is a file: find() returns an invalid entry for an unknown path.
        bool isValid() const { return !path.isEmpty(); }
    };

    ReleaseList() = default;
    /// Takes files in any order; each path once, and one that parse() accepts.
    explicit ReleaseList(QVector<Entry> entries);

    /// Reads a files.txt. Returns false, with the line and the reason in `error`, if a line is
    /// malformed, names a path outside the tree, or is not sorted behind the one before it, which
    /// two entries for one path are not; `out` is then unchanged.
    static bool parse(const QByteArray& text, ReleaseList& out, QString& error);
    /// Returns the text of files.txt; equal files give equal bytes.
    QByteArray toText() const;

    /// Returns the files, sorted by path.
    const QVector<Entry>& entries() const { return m_entries; }
    /// Returns whether the list has no file.
    bool isEmpty() const { return m_entries.isEmpty(); }
    /// Returns the entry of a path, which may begin with "/" and have doubled slashes, as in
    /// catalogues; an invalid entry if it is not listed.
    Entry find(const QString& path) const;

    /// Returns why a path cannot be listed; empty if it can.
    static QString faultOf(const QByteArray& path);

private:
    QVector<Entry> m_entries; // sorted by path
};
