// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "records/MvResourceExport.h"

#include <QSet>
#include <QString>
#include <QVector>

struct SCfg_Item;
struct SFileInfo;

/// The files of one item and of everything that it uses, each file once, as they were on disk when
/// the object was created.
///
/// The items belong to the catalogue: do not use the object after MVThemeMgr::load(true) or
/// clear(). Any thread that may use the catalogue; the constructor accesses the disk once per file.
class MVRESOURCE_EXPORT ItemFiles
{
public:
    /// The purpose of a file within its item.
    enum class Role {
        Thumbnail,
        Preview, ///< animated
        Config,  ///< the item's own definition
        Resource,
    };

    /// One file of an item, as it was on disk.
    struct Entry
    {
        Role role;             ///< the use of the file
        const SCfg_Item* item; ///< the first that needs the file
        QString path;          ///< absolute, without doubled slashes
        QString url;           ///< address on the server
        bool isPresent;        ///< on disk
        qint64 sizeBytes;      ///< on disk; 0 for a missing file
    };

    /// The items whose files are listed.
    enum class Scope {
        WithUses, ///< of the item and of everything that it uses
        Own,      ///< of the item alone
    };
    /// Looks up the files of an item whose theme config, if any, has already been parsed, see
    /// MVThemeMgr::ensureThemeParsed(). Also sets the local paths of all records.
    explicit ItemFiles(SCfg_Item& item, Scope scope = Scope::WithUses);

    /// Returns the files of the item, then those of the items it uses, in the order of uses().
    const QVector<Entry>& entries() const { return m_entries; }
    /// Returns the items that a theme uses, each once, in the order of its config.
    const QVector<SCfg_Item*>& uses() const { return m_uses; }
    /// Returns how many of the entries are not on disk.
    int missingCount() const;
    /// Returns the size on disk of all entries together.
    qint64 totalBytes() const;

    /// Returns how many different files must be fetched before the item can be used. Parses a
    /// theme's config if necessary. If the host checks content, a config that cannot be parsed
    /// counts as missing.
    static int countNeeded(SCfg_Item& item);
    /// Returns the same for each of many items, and resolves each of their folders only once: what
    /// becomes a link meanwhile goes unnoticed.
    static QVector<int> countNeeded(const QVector<SCfg_Item*>& items);
    /// Returns whether any file must be fetched.
    static bool needsAny(SCfg_Item& item);
    /// The missing files of an item and all that it uses.
    struct Missing
    {
        QSet<QString> paths; ///< as in entries(), pictures included
        int needed;          ///< as countNeeded() counts them
    };
    /// Returns the missing files with one look at the disk. Parses a theme's config if necessary.
    static Missing missingOf(SCfg_Item& item);
    /// Returns their paths alone.
    static QSet<QString> missingPaths(SCfg_Item& item) { return missingOf(item).paths; }

private:
    void add(SCfg_Item& item);
    void add(Role role, const SCfg_Item& item, const SFileInfo& info);

    QVector<Entry> m_entries;
    QSet<QString> m_paths; // of the entries
    QVector<SCfg_Item*> m_uses;
};
