// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "catalogue/ItemFiles.h"
#include "download/SItemState.h"

#include <QJsonArray>
#include <QJsonObject>
#include <QString>
#include <QtGlobal>
#include <QVector>

#include <functional>

class FileStates;
class ItemIndex;
struct SCfg_Item;

/// The states of a set of items, and what an update of them would fetch, as they were on disk when
/// the object was created. Pictures that are missing count only if items cannot be used without
/// them.
class Survey
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

    Survey() = default;
    /// Looks at the items one by one until `isCancelled` (may be empty) returns true.
    Survey(const FileStates& states, const QVector<SCfg_Item*>& items,
           const std::function<bool()>& isCancelled = {});

    /// Returns the survey of those items that lack files, with the files that a download fetches:
    /// all that are missing, pictures included.
    static Survey ofDownloads(const FileStates& states, const QVector<SCfg_Item*>& items);

    const QVector<Row>& rows() const { return m_rows; }
    /// Returns the number of items in a state.
    int count(EFileState state) const;
    /// Returns the survey of those items that a condition holds for.
    Survey where(const std::function<bool(const Row&)>& condition) const;
    QVector<SCfg_Item*> items() const;

    /// Return the number of files to fetch and their size, each file counted once.
    int fileCount() const;
    qint64 bytes() const;
    /// Returns "1 file, 1.2 kB", "2 files, 1.2 kB or more".
    QString total() const;

    /// Prints a line for each item, and below it one for each of its files.
    void print(ItemIndex& index) const;
    QJsonArray toJson() const;
    /// Returns an object with the items, the number of files to fetch and their size.
    QJsonObject toJsonWithTotals() const;

private:
    QVector<File> distinctFiles() const;
    bool areBytesKnown() const;

    QVector<Row> m_rows;
};
