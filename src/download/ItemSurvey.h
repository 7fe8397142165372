// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "download/FileStates.h"
#include "records/MvResourceExport.h"

#include <QString>
#include <QStringList>
#include <QtGlobal>
#include <QVector>

#include <functional>

struct SCfg_Item;

/// The states of a set of items and what an update of them fetches, as they were on disk when the
/// set was verified. A missing picture without which an item can be used counts only if the item is
/// not ready and the release lists the picture. A value type.
///
///     const ItemSurvey damaged =
///         ItemSurvey::verifyAll(FileStates::Depth::Deep, progress)
///             .where([](const ItemSurvey::Row& row) { return !row.files.isEmpty(); });
///     const SUpdateOutcome outcome = ItemUpdate(token).updateItems(damaged.items());
///
/// The items belong to the catalogue: do not use the object after MVThemeMgr::load(true) or
/// clear(). Any thread that may use the catalogue, one at a time.
class MVRESOURCE_EXPORT ItemSurvey
{
public:
    /// A file that an item lacks, or that is not the published one.
    struct File
    {
        ItemFiles::Entry entry; ///< as it is on disk
        EFileState state;       ///< missing, outdated or damaged
        qint64 bytes;           ///< as the release lists it; 0 if it does not
    };
    /// One item with what is wrong with it.
    struct MVRESOURCE_EXPORT Row
    {
        SCfg_Item* item;     ///< owned by the catalogue
        SItemState state;    ///< with all that it uses
        int missing;         ///< files without which the item cannot be used
        QVector<File> files; ///< to be fetched: missing, outdated and damaged ones

        /// Returns whether the item can be used, and no file is damaged.
        bool isReady() const;
    };
    /// Takes the bytes read since the last call, also 0 after each item; returns whether to
    /// continue. If not, that item and those that would follow are left out.
    using Progress = FileStates::Progress;

    ItemSurvey() = default;

    /// Verifies items, each with all that it uses, see FileStates::Depth. The items are the
    /// catalogue's.
    static ItemSurvey verify(const QVector<SCfg_Item*>& items,
                             FileStates::Depth depth = FileStates::Depth::Quick,
                             const Progress& progress = Progress());
    /// Verifies the items on disk, see ResourceStorage::itemsOnDisk().
    static ItemSurvey verifyAll(FileStates::Depth depth = FileStates::Depth::Quick,
                                const Progress& progress = Progress());
    /// Verifies the items with these GUIDs, each once, such as those that a project needs. GUIDs
    /// without an item are unknown().
    static ItemSurvey verifyGuids(const QStringList& guids,
                                  FileStates::Depth depth = FileStates::Depth::Quick,
                                  const Progress& progress = Progress());
    /// Verifies those of the items that are not ready, with the files that the download of each
    /// fetches (MVThemeDownLoader): all that are missing, pictures included, and a definition that
    /// cannot be read.
    static ItemSurvey verifyDownloads(const QVector<SCfg_Item*>& items);

    /// Returns the items, in the order in which they were verified.
    const QVector<Row>& rows() const { return m_rows; }
    /// Returns the items of the rows.
    QVector<SCfg_Item*> items() const;
    /// Returns the GUIDs that no item of the catalogue has, in their order.
    const QStringList& unknown() const { return m_unknown; }
    /// Returns the items that are ready.
    QVector<SCfg_Item*> ready() const;
    /// Returns the items that are not ready; one ItemUpdate fetches what they need.
    QVector<SCfg_Item*> toFetch() const;

    /// Returns the number of items in a state.
    int count(EFileState state) const;
    /// Returns the survey of those items that a condition holds for.
    ItemSurvey where(const std::function<bool(const Row&)>& condition) const;

    /// Returns the number of files that an update of all items fetches, each file counted once.
    int fileCount() const;
    /// Returns the size of those files, as far as the release names it.
    qint64 bytes() const;
    /// Returns false if more bytes may be fetched, see SItemState::m_bBytesKnown.
    bool areBytesKnown() const;

private:
    QVector<File> distinctFiles() const;
    QVector<SCfg_Item*> itemsWhere(bool isReady) const;

    QVector<Row> m_rows;
    QStringList m_unknown;
};
