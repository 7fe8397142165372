// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "catalogue/CatalogueUse.h"
#include "download/SUpdateOutcome.h"
#include "host/CancelToken.h"
#include "records/MvResourceExport.h"

#include <QString>
#include <QtGlobal>
#include <QVector>

#include <functional>
#include <utility>

struct SCfg_Item;

/// Fetches the files of a set of items, and of all that they use, that are not the published ones:
/// an update of outdated or damaged items, and a download of missing ones.
///
/// All files arrive in a folder of the download root first, where a later update finds what a
/// cancel or a kill has left. The files of each item that is complete then replace the old ones,
/// each atomically and definitions last: a kill leaves files of which each is the old or the new
/// one, and the next update finishes. Listed files are stored only with their digests, others as in
/// an item download. The installed tree is not touched. Updates of several processes wait for each
/// other.
///
///     ItemUpdate update(token);
///     const SUpdateOutcome outcome = update.updateItem(item);
///
/// Create it on the thread that loads the catalogue. One object does one run, on any thread; the
/// catalogue cannot be loaded again while the object exists. Load it afterwards if themes were
/// updated: what they use may have changed.
class MVRESOURCE_EXPORT ItemUpdate
{
public:
    /// Prepares a run that `cancel` ends, within 200 ms while files are fetched.
    explicit ItemUpdate(CancelToken cancel = CancelToken());
    ~ItemUpdate();
    Q_DISABLE_COPY_MOVE(ItemUpdate)

    /// Takes the bytes fetched so far and the total as far as it is known.
    using Progress = std::function<void(qint64 fetchedBytes, qint64 totalBytes)>;
    /// Sets the callback invoked on the thread of the update; the bytes fetched never decrease.
    void setProgress(Progress progress) { m_progress = std::move(progress); }

    /// Updates an item, and returns when that has ended.
    SUpdateOutcome updateItem(SCfg_Item& item) { return updateItems({&item}); }
    /// Updates a set of items as one download: a file that several need is fetched once. The items
    /// are the catalogue's; null ones are ignored.
    SUpdateOutcome updateItems(const QVector<SCfg_Item*>& items);

    /// Removes what interrupted updates have left, unless another process is updating.
    static void removeLeftovers();

private:
    class Run;

    const CatalogueUse m_use;
    const CancelToken m_cancel;
    Progress m_progress;
};
