// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "catalogue/ItemFiles.h"
#include "download/AcceptedRelease.h"
#include "download/SItemState.h"
#include "records/MvResourceExport.h"

#include <QByteArray>
#include <QHash>
#include <QString>
#include <QtGlobal>
#include <QVector>

#include <functional>

struct SCfg_Item;

/// Tells the states of files and items by the accepted release, see EFileState. Any thread that may
/// use the catalogue, one at a time; objects are cheap.
class MVRESOURCE_EXPORT FileStates
{
public:
    /// How thoroughly files are compared with the release.
    enum class Depth {
        /// Reads only files that have changed, by size and time, since their digest was noted.
        Quick,
        /// Reads every file that the release lists, once per object. Later Quick states know what
        /// it finds.
        Deep,
    };
    /// Takes the bytes read since the last call; returns whether to continue.
    using Progress = std::function<bool(qint64 bytesRead)>;

    /// Goes by the current release. With `progress`, reading can be followed and cancelled: files
    /// that were not read to their end then count as unlisted.
    explicit FileStates(Depth depth, Progress progress = Progress());

    /// Returns the state of one file.
    EFileState of(const ItemFiles::Entry& entry) const;
    /// Returns the state of an item with all that it uses. Parses a theme's config if necessary.
    SItemState of(SCfg_Item& item) const;
    /// Returns the same of each of many items, and resolves each of their folders only once: what
    /// becomes a link meanwhile goes unnoticed.
    QVector<SItemState> of(const QVector<SCfg_Item*>& items) const;
    /// Returns those of an item's files that are not the published ones: missing, outdated and
    /// damaged ones. Parses a theme's config if necessary.
    QVector<ItemFiles::Entry> toFetch(SCfg_Item& item) const;
    /// Returns whether the item cannot be used without the file; pictures may be missing with
    /// HostSettings::showWithoutPreviews.
    static bool isNeeded(const ItemFiles::Entry& entry);

    /// Returns the content that the release names for a file; unknown if it is not listed.
    SPublishedContent publishedOf(const ItemFiles::Entry& entry) const;
    /// Returns whether the file may be fetched, replaced and removed: it is not in the installed
    /// tree.
    static bool isManaged(const ItemFiles::Entry& entry);

private:
    using Visit = std::function<void(const ItemFiles::Entry& entry, EFileState state)>;
    int forEach(SCfg_Item& item, const Visit& visit) const;
    QByteArray digestOf(const QString& path) const;
    QByteArray read(const QString& path) const;

    Depth m_depth;
    Progress m_progress;
    mutable bool m_isCancelled = false; // by m_progress
    AcceptedRelease::Pointer m_release;
    mutable QHash<QString, QByteArray> m_read; // digests by path; several items may use a file
};
