// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "records/MvResourceExport.h"

#include <QString>
#include <QStringList>
#include <QtGlobal>
#include <QVector>

struct SCfg_Item;

/// The disk space of the download root: what items use, removing items, and files that no catalogue
/// names. The installed tree is not touched. GUID comparisons are those of the catalogue.
///
/// Call the functions on a thread that may use the catalogue, while no download, update or preview
/// run works; each looks at the files of the whole catalogue on disk.
class MVRESOURCE_EXPORT ResourceStorage
{
public:
    /// The space that one item takes in the download root.
    struct Use
    {
        const SCfg_Item* item = nullptr; ///< owned by the catalogue
        qint64 ownBytes = 0;             ///< of files that no other item on disk needs
        qint64 sharedBytes = 0;          ///< of those that others need, too
        /// Returns the size of all files of the item.
        qint64 bytes() const { return ownBytes + sharedBytes; }
    };

    /// A file that is moved aside: its place and where it is now.
    struct Moved
    {
        QString path;  ///< where it was, absolute
        QString aside; ///< where it is now, absolute
    };

    /// A removal that can be undone.
    struct Removal
    {
        QVector<Moved> files; ///< in the order in which they were moved
        qint64 bytes = 0;     ///< size of the files together
        /// Empty after a success; otherwise why nothing was removed.
        QString error;
        /// Returns whether the item has been removed.
        bool isComplete() const { return error.isEmpty(); }
    };

    /// Reads nothing; each function looks at the disk when it is called.
    ResourceStorage();

    /// Returns the displayed items that are on disk, in the order of the catalogue: the definition
    /// of each is in the download root, or a resource that only it names.
    QVector<SCfg_Item*> itemsOnDisk() const;
    /// Returns the disk use of the items on disk, in the same order.
    QVector<Use> diskUse() const;
    /// Returns that of one item.
    Use diskUse(SCfg_Item& item) const;
    /// Returns the size of all files in the diskUse(), each counted once.
    qint64 usedBytes() const;

    /// Moves the files of an item out of the way that no other item on disk needs: its definition
    /// first, so that a removal that is interrupted leaves an item that is not ready. Previews
    /// stay, and so do the items it uses, if users can choose them themselves.
    Removal removeItem(SCfg_Item& item) const;
    /// Returns what removeItem() would move, if the files of the removals in `earlier` were gone:
    /// without their new place, and without changing anything.
    Removal previewRemoval(SCfg_Item& item, const QVector<Removal>& earlier = {}) const;
    /// Moves the files of a removal back. Returns false if some could not be, or have come back
    /// already.
    static bool undo(const Removal& removal);
    /// Deletes what removals have moved aside; they cannot be undone any more.
    static void purge();

    /// Returns the files of the download root that no catalogue names (none if it cannot be read),
    /// sorted, with their paths. Files in a folder beside an archive or a definition belong to
    /// that. Without a catalogue none is known to be left over.
    QStringList leftovers() const;
    /// Returns the files that removals and interrupted updates have left, with their paths.
    QStringList remains() const;
    /// Returns the file that updates of all processes lock while they work on the download root. A
    /// host that moves or deletes files of the root itself locks it, too, see FileLock.
    static QString lockFile();
    /// Returns the files of the root whose content grows in place; every other one is replaced by a
    /// new file. A host that copies the root must not link these: both names would change.
    static QStringList growingFiles();

    /// Deletes the leftovers, what removals and interrupted updates have left, and the empty
    /// folders of all of them. Returns the number of bytes that were freed.
    qint64 clean() const;
};
