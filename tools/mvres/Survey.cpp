// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "Survey.h"

#include "catalogue/MVThemeMgr.h"
#include "Console.h"
#include "download/FileStates.h"
#include "ItemIndex.h"
#include "Items.h"
#include "States.h"
#include "Table.h"

#include <QJsonObject>
#include <QSet>

#include <algorithm>
#include <numeric>

namespace {

QVector<Survey::File> filesToFetch(const FileStates& states, SCfg_Item& item)
{
    QVector<Survey::File> files;
    const QVector<ItemFiles::Entry> entries = states.toFetch(item);
    for (const ItemFiles::Entry& entry : entries) {
        const EFileState state = states.of(entry);
        if (state != eFile_Missing || FileStates::isNeeded(entry))
            files.append({entry, state, states.publishedOf(entry).m_sizeBytes});
    }
    return files;
}

/// Returns the files that a download of the item fetches: those that are missing, and a definition
/// that cannot be read.
QVector<Survey::File> filesToDownload(const FileStates& states, SCfg_Item& item)
{
    QVector<Survey::File> files;
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

QJsonArray filesToJson(const QVector<Survey::File>& files)
{
    QJsonArray array;
    for (const Survey::File& file : files) {
        array.append(QJsonObject{
            {QStringLiteral("what"), Items::roleName(file.entry.role)},
            {QStringLiteral("path"), file.entry.path},
            {QStringLiteral("url"), file.entry.url},
            {QStringLiteral("state"), States::word(file.state)},
            {QStringLiteral("bytesToFetch"), static_cast<double>(file.bytes)},
        });
    }
    return array;
}

} // namespace

bool Survey::Row::isReady() const
{
    return missing == 0 && state.m_eState != eFile_Damaged;
}

Survey::Survey(const FileStates& states, const QVector<SCfg_Item*>& items,
               const std::function<bool()>& isCancelled)
{
    for (SCfg_Item* const item : items) {
        if (isCancelled && isCancelled())
            return;
        const SItemState state = states.of(*item);
        m_rows.append({item, state, state.m_nNeeded, filesToFetch(states, *item)});
    }
}

Survey Survey::ofDownloads(const FileStates& states, const QVector<SCfg_Item*>& items)
{
    Survey survey;
    for (SCfg_Item* const item : items) {
        const int missing = ItemFiles::countNeeded(*item);
        if (missing > 0)
            survey.m_rows.append({item, states.of(*item), missing, filesToDownload(states, *item)});
    }
    return survey;
}

int Survey::count(EFileState state) const
{
    return static_cast<int>(std::count_if(m_rows.cbegin(), m_rows.cend(), [&](const Row& row) {
        return row.state.m_eState == state;
    }));
}

Survey Survey::where(const std::function<bool(const Row&)>& condition) const
{
    Survey survey;
    std::copy_if(m_rows.cbegin(), m_rows.cend(), std::back_inserter(survey.m_rows), condition);
    return survey;
}

QVector<SCfg_Item*> Survey::items() const
{
    QVector<SCfg_Item*> items;
    for (const Row& row : m_rows)
        items.append(row.item);
    return items;
}

QVector<Survey::File> Survey::distinctFiles() const
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

int Survey::fileCount() const
{
    return distinctFiles().size();
}

qint64 Survey::bytes() const
{
    const QVector<File> files = distinctFiles();
    return std::accumulate(files.cbegin(), files.cend(), qint64{0},
                           [](qint64 sum, const File& file) { return sum + file.bytes; });
}

bool Survey::areBytesKnown() const
{
    return std::all_of(m_rows.cbegin(), m_rows.cend(),
                       [](const Row& row) { return row.state.m_bBytesKnown; });
}

QString Survey::total() const
{
    return Console::counted(fileCount(), QStringLiteral("file")) + QStringLiteral(", ")
        + States::bytes(bytes(), areBytesKnown());
}

void Survey::print(ItemIndex& index) const
{
    Table table;
    for (const Row& row : m_rows) {
        table.add({row.item->m_qsGUID, Items::kindName(row.item->m_eType), index.nameOf(*row.item),
                   States::size(row.state, row.missing),
                   row.missing > 0 ? States::text(row.state, row.missing)
                                   : States::word(row.state.m_eState)});
    }
    const QStringList lines = table.lines();
    for (int number = 0; number < lines.size(); ++number) {
        Console::print(lines.at(number));
        for (const File& file : m_rows.at(number).files)
            Console::print(
                QStringLiteral("  %1 %2").arg(States::word(file.state), -8).arg(file.entry.path));
    }
}

QJsonArray Survey::toJson() const
{
    QJsonArray array;
    for (const Row& row : m_rows) {
        QJsonObject object = Items::toJson(*row.item, row.missing);
        States::addTo(object, row.state);
        object.insert(QStringLiteral("files"), filesToJson(row.files));
        array.append(object);
    }
    return array;
}

QJsonObject Survey::toJsonWithTotals() const
{
    return {{QStringLiteral("items"), toJson()},
            {QStringLiteral("filesToFetch"), fileCount()},
            {QStringLiteral("bytesToFetch"), static_cast<double>(bytes())}};
}
