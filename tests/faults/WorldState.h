// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>
#include <QMap>
#include <QString>

/// One file, folder or link.
struct WorldEntry
{
    enum class Kind { File, Folder, Link };

    Kind kind = Kind::File;
    unsigned int mode = 0; ///< permissions; 0 for a link
    QByteArray content;    ///< of a file; for a link, its target

    bool operator==(const WorldEntry& other) const
    {
        return kind == other.kind && mode == other.mode && content == other.content;
    }
    bool operator!=(const WorldEntry& other) const { return !(*this == other); }
};

/// A snapshot of everything below a folder, by relative path. A value type.
class WorldState
{
public:
    WorldState() = default;
    static WorldState of(const QString& folder);

    const QMap<QString, WorldEntry>& entries() const { return m_entries; }
    bool contains(const QString& path) const { return m_entries.contains(path); }
    /// Returns whether both have the same entry at that path, or both have none.
    bool isSameAt(const QString& path, const WorldState& other) const;

    /// Returns the entries in these places (paths and everything below them), or all others.
    WorldState within(const QStringList& places) const;
    WorldState without(const QStringList& places) const;
    /// Returns the entries below that path, relative to it; the folder itself is ".".
    WorldState below(const QString& path) const;

    /// Returns this state plus the folders that only the other state has.
    WorldState withFoldersOf(const WorldState& other) const;

    /// Returns a digest that is equal exactly for equal states.
    QByteArray digest() const;
    /// Describes the first difference; empty if there is none.
    QString differenceFrom(const WorldState& other) const;

    /// Makes `to` a copy of `from`, replacing whatever it was. Returns false on failure.
    static bool copy(const QString& from, const QString& to);

private:
    QMap<QString, WorldEntry> m_entries;
};
