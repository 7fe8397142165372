// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

// ResourceModel: the data of the rows, and telling their changes.

#include "model/ModelEngine.h"
#include "model/ResourceModel.h"

#include <algorithm>
#include <utility>

namespace {

/// Returns a state that does not depend on what is being done to the item.
ResourceModel::State restingState(EFileState state, bool hasFailed)
{
    switch (state) {
    case eFile_Missing:
        return hasFailed ? ResourceModel::Failed : ResourceModel::Missing;
    case eFile_Outdated:
        return ResourceModel::Outdated;
    case eFile_Damaged:
        return ResourceModel::Damaged;
    case eFile_Current:
    case eFile_Unlisted:
        break;
    }
    return ResourceModel::Ready;
}

bool isUsable(const SItemFacts* facts)
{
    return facts && facts->hasState && facts->state.m_eState != eFile_Missing;
}

bool isOutdated(const SItemFacts* facts)
{
    return isUsable(facts)
        && (facts->state.m_eState == eFile_Outdated || facts->state.m_eState == eFile_Damaged);
}

qint64 sizeOf(const SItemFacts* facts)
{
    return facts && facts->hasState ? facts->state.m_nBytes : -1;
}

} // namespace

int ResourceModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : count();
}

QHash<int, QByteArray> ResourceModel::roleNames() const
{
    static const QHash<int, QByteArray> names{
        {GuidRole, "guid"},
        {NameRole, "name"},
        {KindRole, "kind"},
        {ThemeTypeRole, "themeType"},
        {ThumbnailRole, "thumbnail"},
        {PreviewRole, "preview"},
        {FavouriteRole, "favourite"},
        {StateRole, "state"},
        {UsableRole, "usable"},
        {OutdatedRole, "outdated"},
        {BytesToFetchRole, "bytesToFetch"},
        {BytesKnownRole, "bytesKnown"},
        {SizeRole, "size"},
        {BusyRole, "busy"},
        {ProgressRole, "progress"},
        {ErrorTextRole, "errorText"},
        {ErrorDetailsRole, "errorDetails"},
    };
    return names;
}

QVariant ResourceModel::data(const QModelIndex& index, int role) const
{
    if (index.model() != this || index.row() < 0 || index.row() >= count())
        return {};
    const Row& row = m_rows.at(index.row());
    switch (role) {
    case GuidRole:
        return row.guid;
    case Qt::DisplayRole:
    case NameRole:
        return row.name;
    case KindRole:
        return QVariant::fromValue(kind());
    case ThemeTypeRole:
        return row.themeType;
    case FavouriteRole:
        return row.isFavourite;
    default:
        return factOf(row, role);
    }
}

/// Returns what is known of an item's files, and of what is being done to them.
QVariant ResourceModel::factOf(const Row& row, int role) const
{
    const ResourceKey key = keyOf(row.guid);
    const SItemFacts* const facts = m_engine->states.find(key);
    const ItemTransfers& transfers = m_engine->transfers;
    switch (role) {
    case ThumbnailRole:
        return facts ? facts->thumbnail.url : QUrl();
    case PreviewRole:
        return facts ? facts->preview.url : QUrl();
    case StateRole:
        return QVariant::fromValue(stateOf(key));
    case UsableRole:
        return isUsable(facts);
    case OutdatedRole:
        return isOutdated(facts);
    case BytesToFetchRole:
        return facts ? facts->state.m_nBytesToFetch : qint64{0};
    case BytesKnownRole:
        return facts && facts->hasState && facts->state.m_bBytesKnown;
    case SizeRole:
        return sizeOf(facts);
    case BusyRole:
        return transfers.isBusy(key);
    case ProgressRole:
        return transfers.percent(key);
    case ErrorTextRole:
        return transfers.failure(key).causeText();
    case ErrorDetailsRole:
        return transfers.failure(key).m_qsDetails;
    default:
        return {};
    }
}

ResourceModel::State ResourceModel::stateOf(const ResourceKey& key) const
{
    if (const auto operation = m_engine->transfers.operation(key)) {
        switch (*operation) {
        case ItemTransfers::Operation::Fetch:
            return Downloading;
        case ItemTransfers::Operation::Update:
            return Updating;
        case ItemTransfers::Operation::Remove:
            return Removing;
        }
    }
    const SItemFacts* const facts = m_engine->states.find(key);
    if (!facts || !facts->hasState)
        return Unknown;
    return restingState(facts->state.m_eState, m_engine->transfers.failure(key).isFailure());
}

void ResourceModel::tellChanged(const QString& guid, const QVector<int>& roles)
{
    const int row = rowOf(guid);
    if (row >= 0)
        emit dataChanged(index(row), index(row), roles);
}

/// Tells that what is known of these items' files has changed, in as few ranges as possible.
void ResourceModel::tellChanged(const QStringList& guids)
{
    const QVector<int> roles{ThumbnailRole, PreviewRole,      StateRole,      UsableRole,
                             OutdatedRole,  BytesToFetchRole, BytesKnownRole, SizeRole};
    QVector<int> rows;
    for (const QString& guid : guids) {
        const int row = rowOf(guid);
        if (row >= 0)
            rows.append(row);
    }
    std::sort(rows.begin(), rows.end());
    for (int first = 0; first < rows.size();) {
        int last = first;
        while (last + 1 < rows.size() && rows.at(last + 1) <= rows.at(last) + 1)
            ++last;
        emit dataChanged(index(rows.at(first)), index(rows.at(last)), roles);
        first = last + 1;
    }
}
