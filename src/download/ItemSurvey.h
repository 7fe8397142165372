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
    struct File
    {
        ItemFiles::Entry entry;
        EFileState state;
        qint64 bytes; ///< as the release lists it; 0 if it does not
    };
    struct Row
    {
        SCfg_Item* item;
        SItemState state;
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
    /// Returns the survey of those items that lack files, with the files that a download, other
    /// than an update, fetches: all that are missing, pictures included, and a definition that
    /// cannot be read.
    static ItemSurvey ofDownloads(const QVector<SCfg_Item*>& items);
    /// Verifies the items on disk, see ResourceStorage::itemsOnDisk().
    static ItemSurvey verifyAll(FileStates::Depth depth = FileStates::Depth::Quick,
                                const Progress& progress = Progress());
    /// Verifies the items with these GUIDs, each once, such as those that a project needs. GUIDs
    /// without an item are unknown().
    static ItemSurvey verifyGuids(const QStringList& guids,
                                  FileStates::Depth depth = FileStates::Depth::Quick,
                                  const Progress& progress = Progress());

    const QVector<Row>& rows() const { return m_rows; }
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

    /// Return the number of files that an update of all items fetches and their size, each file
    /// counted once.
    int fileCount() const;
    qint64 bytes() const;
    /// Returns false if more bytes may be fetched, see SItemState::m_bBytesKnown.
    bool areBytesKnown() const;

private:
    QVector<File> distinctFiles() const;
    QVector<SCfg_Item*> itemsWhere(bool isReady) const;

    QVector<Row> m_rows;
    QStringList m_unknown;
};
