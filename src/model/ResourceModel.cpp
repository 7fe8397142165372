// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "model/ResourceModel.h"

#include "catalogue/CatalogueChanges.h"
#include "catalogue/ItemFiles.h"
#include "catalogue/MVThemeMgr.h"
#include "download/PreviewExchange.h"
#include "host/HostSettings.h"
#include "model/ModelEngine.h"
#include "records/KindTable.h"

#include <QMetaType>
#include <QPointer>

#include <utility>

using Operation = ItemTransfers::Operation;

ResourceModel::ResourceModel(QObject* parent)
    : ResourceModel(Theme, parent)
{
}

ResourceModel::ResourceModel(Kind kind, QObject* parent)
    : QAbstractListModel(parent)
    , m_engine(ModelEngine::shared())
    , m_kind(static_cast<ECfgItemType>(kind))
{
    qRegisterMetaType<ResourceModel::Outcome>("ResourceModel::Outcome"); // for queued connections
    m_engine->states.watch(m_kind);
    m_rows = readRows();
    follow();
}

ResourceModel::~ResourceModel()
{
    showItems({});
    m_engine->states.unwatch(m_kind);
}

void ResourceModel::follow()
{
    MVThemeMgr* const catalogue = MVThemeMgr::init();
    connect(CatalogueChanges::instance(), &CatalogueChanges::ended, this, [this](bool hasChanged) {
        if (hasChanged)
            updateRows();
    });
    connect(catalogue, &MVThemeMgr::sigThemesCollected, this, &ResourceModel::noteFavourite);
    connect(catalogue, &MVThemeMgr::sigFilterCollected, this, &ResourceModel::noteFavourite);
    connect(catalogue, &MVThemeMgr::sigBgMaterialCollected, this, &ResourceModel::noteFavourite);
    const ItemStates& states = m_engine->states;
    connect(&states, &ItemStates::changed, this,
            [this](ECfgItemType kind, const QStringList& guids) {
                if (kind == m_kind)
                    tellChanged(guids);
            });
    connect(&states, &ItemStates::examiningChanged, this, [this](ECfgItemType kind) {
        if (kind == m_kind)
            emit examiningChanged();
    });
    const ItemTransfers& transfers = m_engine->transfers;
    connect(&transfers, &ItemTransfers::changed, this, [this](const ResourceKey& key) {
        if (key.kind == m_kind)
            tellChanged(key.guid,
                        {StateRole, BusyRole, ProgressRole, ErrorTextRole, ErrorDetailsRole});
    });
    connect(&transfers, &ItemTransfers::ended, this,
            [this](const ResourceKey& key, Operation operation, const SItemDownloadResult& result) {
                if (key.kind == m_kind)
                    takeEnd(key, static_cast<int>(operation), result);
            });
    connect(&transfers, &ItemTransfers::canUndoRemoveChanged, this,
            &ResourceModel::canUndoRemoveChanged);
}

void ResourceModel::setKind(Kind kind)
{
    const auto next = static_cast<ECfgItemType>(kind);
    if (next == m_kind || !KindTable::find(next))
        return;
    const std::shared_ptr<ModelEngine> engine = m_engine; // a receiver may destroy this model
    const ECfgItemType last = m_kind;
    beginResetModel();
    m_kind = next;
    m_rows = readRows();
    m_rowOf.clear();
    m_wanted.clear();
    m_lastChoice.clear();
    endResetModel();
    engine->states.watch(next);
    engine->states.unwatch(last);
    emit kindChanged();
    emit countChanged();
    emit examiningChanged();
}

bool ResourceModel::isExamining() const
{
    return m_engine->states.isExamining(m_kind);
}

bool ResourceModel::canUndoRemove() const
{
    return m_engine->transfers.canUndoRemove();
}

ResourceKey ResourceModel::keyOf(const QString& guid) const
{
    return {m_kind, guid};
}

int ResourceModel::rowOf(const QString& guid) const
{
    if (m_rowOf.isEmpty()) {
        for (int row = 0; row < count(); ++row)
            m_rowOf.insert(m_rows.at(row).guid, row);
    }
    return m_rowOf.value(guid, -1);
}

QVariant ResourceModel::valueOf(const QString& guid, const QString& roleName) const
{
    const int role = roleNames().key(roleName.toUtf8(), -1);
    return role < 0 ? QVariant() : data(index(rowOf(guid)), role);
}

bool ResourceModel::fetch(const QString& guid)
{
    return m_engine->transfers.fetch(keyOf(guid));
}

bool ResourceModel::update(const QString& guid)
{
    return m_engine->transfers.update(keyOf(guid));
}

bool ResourceModel::remove(const QString& guid)
{
    return m_engine->transfers.remove(keyOf(guid));
}

bool ResourceModel::undoRemove()
{
    return m_engine->transfers.undoRemove();
}

void ResourceModel::cancel(const QString& guid)
{
    m_wanted.remove(guid);
    m_engine->transfers.cancel(keyOf(guid));
}

bool ResourceModel::apply(const QString& guid)
{
    SCfg_Item* const item = keyOf(guid).find();
    if (!item)
        return false;
    m_lastChoice = guid;
    if (ItemFiles::needsAny(*item)) {
        m_wanted.insert(guid);
        fetch(guid); // unless it is being fetched
        return true;
    }
    emit applied(guid);
    return true;
}

void ResourceModel::applyFetched(const QString& guid)
{
    if (!m_wanted.remove(guid) || (hostSettings().lastChoiceWins && m_lastChoice != guid))
        return;
    SCfg_Item* const item = keyOf(guid).find();
    if (item && !ItemFiles::needsAny(*item))
        emit applied(guid);
}

void ResourceModel::takeEnd(const ResourceKey& key, int operation,
                            const SItemDownloadResult& result)
{
    const auto outcome = result.m_eEnd == eItemDownload_Complete ? Complete
        : result.m_eEnd == eItemDownload_Failed                  ? Failure
                                                                 : Cancelled;
    const QString error = outcome == Failure ? result.m_failure.causeText() : QString();
    const QPointer<ResourceModel> self(this); // a receiver may destroy it
    switch (static_cast<Operation>(operation)) {
    case Operation::Fetch:
        emit fetchEnded(key.guid, outcome, error);
        if (self)
            applyFetched(key.guid);
        break;
    case Operation::Update:
        emit updateEnded(key.guid, outcome, error);
        break;
    case Operation::Remove:
        emit removeEnded(key.guid, outcome, error);
        break;
    }
}

bool ResourceModel::setFavourite(const QString& guid, bool isFavourite)
{
    SCfg_Item* const item = keyOf(guid).find();
    if (!item || KindTable::of(m_kind).favourites == EFavouritesFile::None)
        return false;
    item->m_bCollected = isFavourite;
    MVThemeMgr::init()->setItemCollected(item);
    return true;
}

/// Filters and background materials share their marks.
void ResourceModel::noteFavourite(const SCfg_Item* item)
{
    const SKindInfo* const kind = KindTable::find(item->m_eType);
    const int row = rowOf(item->m_qsGUID);
    if (!kind || kind->favourites != KindTable::of(m_kind).favourites || row < 0
        || m_rows.at(row).isFavourite == item->m_bCollected)
        return;
    m_rows[row].isFavourite = item->m_bCollected;
    tellChanged(item->m_qsGUID, {FavouriteRole});
}

void ResourceModel::showRows(int first, int count)
{
    QStringList guids;
    for (int row = qMax(0, first); row < first + count && row < this->count(); ++row)
        guids.append(m_rows.at(row).guid);
    showItems(guids);
}

void ResourceModel::showItems(const QStringList& guids)
{
    PreviewExchange::instance()->setShown(this, guids);
    QVector<ResourceKey> unknown;
    for (const QString& guid : guids) {
        const SItemFacts* const facts = m_engine->states.find(keyOf(guid));
        if (rowOf(guid) >= 0 && !(facts && facts->hasState))
            unknown.append(keyOf(guid));
    }
    if (!unknown.isEmpty())
        m_engine->states.refresh(unknown);
}
