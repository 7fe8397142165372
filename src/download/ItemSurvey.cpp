// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "download/ItemSurvey.h"

#include "catalogue/ItemIndex.h"
#include "catalogue/MVThemeMgr.h"
#include "download/ResourceStorage.h"

#include <QSet>

#include <algorithm>
#include <iterator>
#include <numeric>

namespace {

/// An item that is ready is not incomplete for want of a picture. The download of another one
/// brings its pictures, too, if they are published.
QVector<ItemSurvey::File> filesToFetch(const FileStates& states, const ItemSurvey::Row& row)
{
    QVector<ItemSurvey::File> files;
    const QVector<ItemFiles::Entry> entries = states.toFetch(*row.item);
    for (const ItemFiles::Entry& entry : entries) {
        const EFileState state = states.of(entry);
        const SPublishedContent published = states.publishedOf(entry);
        const bool comesAlong = !row.isReady() && published.isKnown();
        if (state != eFile_Missing || FileStates::isNeeded(entry) || comesAlong)
            files.append({entry, state, published.m_sizeBytes});
    }
    return files;
}

QVector<ItemSurvey::File> filesToDownload(const FileStates& states, SCfg_Item& item)
{
    QVector<ItemSurvey::File> files;
    const bool isReadable = MVThemeMgr::init()->ensureThemeParsed(item);
    const QVector<ItemFiles::Entry> entries = states.toFetch(item);
    for (const ItemFiles::Entry& entry : entries) {
        const bool isBroken =
            !isReadable && entry.item == &item && entry.role == ItemFiles::Role::Config;
        if (!entry.isPresent || isBroken)
            files.append({entry, entry.isPresent ? eFile_Damaged : eFile_Missing,
                          states.publishedOf(entry).m_sizeBytes});
    }
    return files;
}

} // namespace

bool ItemSurvey::Row::isReady() const
{
    return missing == 0 && state.m_eState != eFile_Damaged;
}

ItemSurvey ItemSurvey::verify(const QVector<SCfg_Item*>& items, FileStates::Depth depth,
                              const Progress& progress)
{
    const FileStates states(depth, progress);
    ItemSurvey survey;
    for (SCfg_Item* const item : items) {
        const SItemState state = states.of(*item);
        Row row{item, state, state.m_nNeeded, {}};
        row.files = filesToFetch(states, row);
        if (progress && !progress(0))
            break;
        survey.m_rows.append(row);
    }
    return survey;
}

ItemSurvey ItemSurvey::ofDownloads(const QVector<SCfg_Item*>& items)
{
    const FileStates states(FileStates::Depth::Quick);
    ItemSurvey survey;
    for (SCfg_Item* const item : items) {
        const int missing = ItemFiles::countNeeded(*item);
        if (missing > 0)
            survey.m_rows.append({item, states.of(*item), missing, filesToDownload(states, *item)});
    }
    return survey;
}

ItemSurvey ItemSurvey::verifyAll(FileStates::Depth depth, const Progress& progress)
{
    return verify(ResourceStorage().itemsOnDisk(), depth, progress);
}

ItemSurvey ItemSurvey::verifyGuids(const QStringList& guids, FileStates::Depth depth,
                                   const Progress& progress)
{
    ItemIndex index;
    QVector<SCfg_Item*> items;
    QSet<SCfg_Item*> known;
    QStringList unknown;
    for (const QString& guid : guids) {
        SCfg_Item* const item = index.find(guid);
        if (!item)
            unknown.append(guid);
        else if (!known.contains(item))
            items.append(item);
        known.insert(item);
    }
    ItemSurvey survey = verify(items, depth, progress);
    survey.m_unknown = unknown;
    return survey;
}

QVector<SCfg_Item*> ItemSurvey::items() const
{
    QVector<SCfg_Item*> items;
    for (const Row& row : m_rows)
        items.append(row.item);
    return items;
}

QVector<SCfg_Item*> ItemSurvey::itemsWhere(bool isReady) const
{
    return where([isReady](const Row& row) { return row.isReady() == isReady; }).items();
}

QVector<SCfg_Item*> ItemSurvey::ready() const
{
    return itemsWhere(true);
}

QVector<SCfg_Item*> ItemSurvey::toFetch() const
{
    return itemsWhere(false);
}

int ItemSurvey::count(EFileState state) const
{
    return static_cast<int>(std::count_if(m_rows.cbegin(), m_rows.cend(), [&](const Row& row) {
        return row.state.m_eState == state;
    }));
}

ItemSurvey ItemSurvey::where(const std::function<bool(const Row&)>& condition) const
{
    ItemSurvey survey;
    std::copy_if(m_rows.cbegin(), m_rows.cend(), std::back_inserter(survey.m_rows), condition);
    return survey;
}

QVector<ItemSurvey::File> ItemSurvey::distinctFiles() const
{
    QVector<File> files;
    QSet<QString> paths;
    for (const Row& row : m_rows) {
        for (const File& file : row.files) {
            if (paths.contains(file.entry.path))
                continue;
            paths.insert(file.entry.path);
            files.append(file);
        }
    }
    return files;
}

int ItemSurvey::fileCount() const
{
    return static_cast<int>(distinctFiles().size());
}

qint64 ItemSurvey::bytes() const
{
    const QVector<File> files = distinctFiles();
    return std::accumulate(files.cbegin(), files.cend(), qint64{0},
                           [](qint64 sum, const File& file) { return sum + file.bytes; });
}

bool ItemSurvey::areBytesKnown() const
{
    return std::all_of(m_rows.cbegin(), m_rows.cend(),
                       [](const Row& row) { return row.state.m_bBytesKnown; });
}
