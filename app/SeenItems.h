// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QSet>
#include <QString>

/// Remembers in a file which items of the catalogue the user has had before, so that the lists can
/// show new ones first. GUI thread.
class SeenItems
{
public:
    /// Reads the file, a JSON array of GUIDs. Without one that can be read nothing is new.
    explicit SeenItems(QString file);

    /// Returns the GUIDs of the catalogue's shown items that an earlier start did not have.
    QSet<QString> newItems() const;
    /// Adds the catalogue's shown items to the file, atomically. Returns false if it cannot be
    /// written.
    bool save() const;

private:
    QString m_file;
    QSet<QString> m_seen;
    bool m_isKnown = false; // the file was read
};
