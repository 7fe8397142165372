// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "model/ItemTransfers.h"

#include "catalogue/CatalogueChanges.h"
#include "download/ItemStates.h"
#include "download/ItemUpdate.h"
#include "download/MVThemeDownLoader.h"
#include "download/ResourceEvents.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <memory>
#include <utility>

namespace {

constexpr int maxDownloads = 4; // at a time; each has several transfers and a thread

/// Deletes the files that a removal has moved aside.
void deleteMoved(const ResourceStorage::Removal& removal)
{
    for (const ResourceStorage::Moved& moved : removal.files)
        QFile::remove(moved.aside);
    if (!removal.files.isEmpty())
        QDir().rmdir(QFileInfo(removal.files.constFirst().aside).path());
}

} // namespace

ItemTransfers::ItemTransfers(ItemStates& states)
    : m_states(states)
{
    connect(&states, &ItemStates::looked, this, &ItemTransfers::report);
    ResourceEvents* const events = ResourceEvents::instance();
    connect(
        events, &ResourceEvents::downloadStarted, this,
        [this](ECfgItemType kind, const QString& guid) {
            noteStarted({kind, guid});
        },
        Qt::QueuedConnection);
    connect(
        events, &ResourceEvents::downloadProgressed, this,
        [this](ECfgItemType kind, const QString& guid, int percent) {
            setPercent({kind, guid}, percent);
        },
        Qt::QueuedConnection);
    connect(
        events, &ResourceEvents::downloadEnded, this,
        [this](ECfgItemType kind, const QString& guid, const SItemDownloadResult& result) {
            noteEnded({kind, guid}, result);
        },
        Qt::QueuedConnection);
    const CatalogueChanges* const changes = CatalogueChanges::instance();
    connect(changes, &CatalogueChanges::announced, this, &ItemTransfers::suspendDownloads);
    connect(changes, &CatalogueChanges::ended, this, &ItemTransfers::resumeDownloads);
}

ItemTransfers::~ItemTransfers()
{
    for (const Active& active : std::as_const(m_active)) {
        if (active.loader)
            active.loader->cancel(); // all, before any is waited for
    }
    for (const Active& active : std::as_const(m_active))
        delete active.loader;
    deleteMoved(m_removed);
}

std::optional<ItemTransfers::Operation> ItemTransfers::operation(const ResourceKey& key) const
{
    const auto active = m_active.constFind(key);
    return active == m_active.cend() ? std::nullopt : std::make_optional(active->operation);
}

bool ItemTransfers::begin(const ResourceKey& key, Operation operation)
{
    if (m_active.value(key).isOwn || !key.find())
        return false;
    Active& active = m_active[key];
    active.operation = operation;
    active.isOwn = true;
    active.isCancelled = false;
    active.percent = 0;
    active.result.reset();
    m_failures.remove(key);
    switch (operation) {
    case Operation::Fetch:
        m_waiting.append(key);
        startDownloads();
        break;
    case Operation::Update:
        addUpdate(key);
        break;
    case Operation::Remove:
        addRemoval(key);
        break;
    }
    emit changed(key);
    return true;
}

void ItemTransfers::cancel(const ResourceKey& key)
{
    const auto active = m_active.find(key);
    if (active == m_active.end() || !active->isOwn || active->operation == Operation::Remove)
        return;
    active->isCancelled = true;
    if (active->operation == Operation::Update)
        m_jobs.interrupt(); // if another update is running, it begins again, behind this one
    if (active->loader)
        active->loader->cancel();
    else if (m_waiting.removeAll(key) > 0)
        endOwn(key, {eItemDownload_Cancelled, eDownLoadError_Cancel, {}});
}

void ItemTransfers::startDownloads()
{
    if (m_isSuspended)
        return;
    const auto running = std::count_if(m_active.cbegin(), m_active.cend(),
                                       [](const Active& active) { return active.loader; });
    for (auto free = maxDownloads - running; free > 0 && !m_waiting.isEmpty(); --free)
        startDownload(m_waiting.takeFirst());
}

void ItemTransfers::startDownload(const ResourceKey& key)
{
    SCfg_Item* const item = key.find();
    if (!item) { // a reload has withdrawn it
        endOwn(key, {eItemDownload_Cancelled, eDownLoadError_Cancel, {}});
        return;
    }
    auto* const loader = new MVThemeDownLoader(this);
    const quint64 number = ++m_lastNumber;
    m_active[key].loader = loader;
    m_active[key].number = number;
    connect(
        loader, &MVThemeDownLoader::sigDownloadFinish, this,
        [this, key, number] { endDownload(key, number); }, Qt::QueuedConnection);
    loader->download(item);
}

void ItemTransfers::endDownload(const ResourceKey& key, quint64 number)
{
    const auto active = m_active.find(key);
    if (active == m_active.end() || !active->loader || active->number != number)
        return; // stopped by a reload meanwhile
    MVThemeDownLoader* const loader = std::exchange(active->loader, nullptr);
    const SItemDownloadResult result = loader->outcome();
    loader->deleteLater();
    endOwn(key, result);
    startDownloads();
}

void ItemTransfers::addUpdate(const ResourceKey& key)
{
    auto outcome = std::make_shared<SUpdateOutcome>();
    CatalogueJobs::Job job;
    job.prepare = [this, key, outcome](const CancelToken& cancel) {
        return prepareUpdate(key, cancel, *outcome);
    };
    job.ended = [this, key, outcome] { endUpdate(key, *outcome); };
    m_jobs.add(std::move(job));
}

/// Returns the work of an update; `outcome` belongs to its job.
CatalogueJobs::Work ItemTransfers::prepareUpdate(const ResourceKey& key, const CancelToken& cancel,
                                                 SUpdateOutcome& outcome)
{
    SCfg_Item* const item = key.find();
    if (!item || m_active.value(key).isCancelled) {
        m_active[key].isCancelled = true;
        outcome.m_eEnd = eItemUpdate_Cancelled;
        return {};
    }
    auto update = std::make_shared<ItemUpdate>(cancel);
    update->setProgress([this, key, told = -1](qint64 fetchedBytes, qint64 totalBytes) mutable {
        if (totalBytes <= 0)
            return;
        const int percent = static_cast<int>(100 * fetchedBytes / totalBytes);
        if (std::exchange(told, percent) == percent)
            return;
        QMetaObject::invokeMethod(
            this, [this, key, percent] { setPercent(key, percent); }, Qt::QueuedConnection);
    });
    return [update, item, &outcome] { outcome = update->updateItem(*item); };
}

void ItemTransfers::endUpdate(const ResourceKey& key, const SUpdateOutcome& outcome)
{
    SItemDownloadResult result;
    if (outcome.m_eEnd == eItemUpdate_Cancelled) {
        if (!m_active.value(key).isCancelled) {
            addUpdate(key); // what was cancelled is this job, not this update
            return;
        }
        result = {eItemDownload_Cancelled, eDownLoadError_Cancel, {}};
    } else if (outcome.m_eEnd == eItemUpdate_Failed) {
        result = {eItemDownload_Failed, eDownLoadError_Element, outcome.m_vecFailures.value(0)};
    }
    endOwn(key, result);
}

void ItemTransfers::addRemoval(const ResourceKey& key)
{
    auto removal = std::make_shared<ResourceStorage::Removal>();
    CatalogueJobs::Job job;
    job.prepare = [key, removal](const CancelToken&) -> CatalogueJobs::Work {
        SCfg_Item* const item = key.find();
        if (!item)
            return {};
        // Without a CatalogueUse, which would count as a download that uses the item.
        return [item, removal] { *removal = ResourceStorage().removeItem(*item); };
    };
    job.ended = [this, key, removal] { endRemoval(key, *removal); };
    m_jobs.add(std::move(job));
}

void ItemTransfers::endRemoval(const ResourceKey& key, const ResourceStorage::Removal& removal)
{
    SItemDownloadResult result;
    if (!removal.isComplete()) {
        result = {eItemDownload_Failed,
                  eDownLoadError_Element,
                  {eFailure_LocalFile, QString(), QString(), removal.error}};
    } else if (!removal.files.isEmpty()) {
        replaceRemoved(removal);
    }
    endOwn(key, result);
}

void ItemTransfers::replaceRemoved(const ResourceStorage::Removal& removal)
{
    const bool couldUndo = canUndoRemove();
    deleteMoved(std::exchange(m_removed, removal));
    if (couldUndo != canUndoRemove())
        emit canUndoRemoveChanged();
}

bool ItemTransfers::undoRemove()
{
    if (!canUndoRemove())
        return false;
    const ResourceStorage::Removal removal = std::exchange(m_removed, {});
    CatalogueJobs::Job job;
    job.prepare = [removal](const CancelToken&) {
        return [removal] { ResourceStorage::undo(removal); };
    };
    job.ended = [] {}; // the states of the items follow the files
    m_jobs.add(std::move(job));
    emit canUndoRemoveChanged();
    return true;
}

/// Ends an operation that was begun here, as soon as the item's state is known.
void ItemTransfers::endOwn(const ResourceKey& key, const SItemDownloadResult& result)
{
    Active& active = m_active[key];
    active.isOwn = false;
    active.result = result;
    if (active.running <= 0)
        m_states.refresh({key});
}

/// Reports the ends of operations whose items have been looked at.
void ItemTransfers::report(const QVector<ResourceKey>& keys)
{
    struct Ended
    {
        ResourceKey key;
        Operation operation;
        SItemDownloadResult result;
    };
    QVector<Ended> over;
    for (const ResourceKey& key : keys) {
        const Active active = m_active.value(key);
        if (active.isOwn || active.running > 0 || !active.result)
            continue;
        over.append({key, active.operation, *active.result});
        m_active.remove(key);
    }
    for (const Ended& each : std::as_const(over)) {
        if (each.result.m_eEnd == eItemDownload_Failed)
            m_failures.insert(each.key, each.result.m_failure);
        else
            m_failures.remove(each.key);
        emit changed(each.key);
    }
    for (const Ended& each : std::as_const(over))
        emit ended(each.key, each.operation, each.result);
}

void ItemTransfers::setPercent(const ResourceKey& key, int percent)
{
    const auto active = m_active.find(key);
    if (active == m_active.end() || active->percent == percent)
        return;
    active->percent = percent;
    emit changed(key);
}

void ItemTransfers::noteStarted(const ResourceKey& key)
{
    const bool isNew = !m_active.contains(key);
    Active& active = m_active[key];
    ++active.running;
    if (!active.isOwn)
        active.result.reset();
    if (isNew)
        emit changed(key);
}

void ItemTransfers::noteEnded(const ResourceKey& key, const SItemDownloadResult& result)
{
    const auto active = m_active.find(key);
    if (active == m_active.end() || active->running == 0)
        return; // it began before this object
    --active->running;
    if (active->isOwn)
        return;
    active->result = result;
    if (active->running == 0)
        m_states.refresh({key});
}

/// Stops the downloads before a reload; those that have ended by themselves meanwhile are over.
void ItemTransfers::suspendDownloads()
{
    m_isSuspended = true;
    for (const Active& active : std::as_const(m_active)) {
        if (active.loader)
            active.loader->cancel(); // all, before any is waited for
    }
    QHash<ResourceKey, SItemDownloadResult> over;
    for (auto active = m_active.begin(); active != m_active.end(); ++active) {
        if (!active->loader)
            continue;
        active->loader->wait();
        const SItemDownloadResult result = active->loader->outcome();
        delete std::exchange(active->loader, nullptr);
        if (result.m_eEnd == eItemDownload_Cancelled && !active->isCancelled)
            m_waiting.prepend(active.key());
        else
            over.insert(active.key(), result);
    }
    for (auto end = over.cbegin(); end != over.cend(); ++end)
        endOwn(end.key(), end.value());
}

void ItemTransfers::resumeDownloads()
{
    m_isSuspended = false;
    startDownloads();
}
