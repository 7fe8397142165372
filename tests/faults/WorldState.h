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
    QByteArray content;    ///< of a file; for a link, where it leads

    bool operator==(const WorldEntry& other) const
    {
        return kind == other.kind && mode == other.mode && content == other.content;
    }
    bool operator!=(const WorldEntry& other) const { return !(*this == other); }
};

/// Everything below a folder, by paths relative to it. A value.
class WorldState
{
public:
    WorldState() = default;
    static WorldState of(const QString& folder);

    const QMap<QString, WorldEntry>& entries() const { return m_entries; }
    bool contains(const QString& path) const { return m_entries.contains(path); }
    /// Whether both have the same at that path, or nothing.
    bool isSameAt(const QString& path, const WorldState& other) const;

    /// What lies in these places (paths and everything below them), or only what does not.
    WorldState within(const QStringList& places) const;
    WorldState without(const QStringList& places) const;
    /// What lies below that path, relative to it; with the folder itself as ".".
    WorldState below(const QString& path) const;

    /// With the folders of another state that this one lacks.
    WorldState withFoldersOf(const WorldState& other) const;

    /// The same for equal states, and for them only.
    QByteArray digest() const;
    /// The first difference; empty if there is none.
    QString differenceFrom(const WorldState& other) const;

    /// Makes `to` a copy of `from`, whatever `to` was. False if that fails.
    static bool copy(const QString& from, const QString& to);

private:
    QMap<QString, WorldEntry> m_entries;
};
