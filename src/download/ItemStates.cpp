// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "download/ItemStates.h"

#include "catalogue/CatalogueChanges.h"
#include "catalogue/CatalogueIndex.h"
#include "catalogue/MVThemeMgr.h"
#include "download/MVThemeDownLoader_CheckCfg.h"
#include "download/PreviewExchange.h"
#include "download/ResourceEvents.h"

#include <QMap>

#include <algorithm>
#include <utility>

namespace {

/// Stores `next` in `known`; returns whether that changes anything.
bool storePicture(SItemFacts::Picture& known, SItemFacts::Picture next)
{
    const bool isSame = known.url.toLocalFile() == next.url.toLocalFile()
        && known.sizeBytes == next.sizeBytes && known.modifiedMs == next.modifiedMs;
    if (isSame)
        return false;
    // Viewers may have cached the old picture under its address.
    next.revision = known.revision + (known.url.isEmpty() ? 0 : 1);
    if (!next.url.isEmpty() && next.revision > 0)
        next.url.setFragment(QString::number(next.revision));
    known = next;
    return true;
}

bool isSame(const SItemState& left, const SItemState& right)
{
    return left.m_eState == right.m_eState && left.m_nToFetch == right.m_nToFetch
        && left.m_nBytesToFetch == right.m_nBytesToFetch
        && left.m_bBytesKnown == right.m_bBytesKnown && left.m_nBytesOnDisk == right.m_nBytesOnDisk
        && left.m_nBytes == right.m_nBytes;
}

} // namespace

ItemStates::ItemStates()
{
    connect(CatalogueChanges::instance(), &CatalogueChanges::ended, this, [this](bool hasChanged) {
        if (hasChanged)
            refreshAll();
    });
    connect(PreviewExchange::instance(), &PreviewExchange::pictureArrived, this,
            &ItemStates::refreshPictures);
    connect(ResourceEvents::instance(), &ResourceEvents::filesChanged, this,
            &ItemStates::refreshUsersOf);
    connect(MVThemeDownLoader_CheckCfg::instance(),
            &MVThemeDownLoader_CheckCfg::sig_catalogueChecked, this, &ItemStates::refreshByRelease);
}

std::shared_ptr<ItemStates> ItemStates::shared()
{
    static std::weak_ptr<ItemStates> existing;
    std::shared_ptr<ItemStates> states = existing.lock();
    if (!states) {
        states = std::make_shared<ItemStates>();
        existing = states;
    }
    return states;
}

void ItemStates::watch(ECfgItemType kind)
{
    if (m_watchers.at(kind)++ == 0)
        refreshKind(kind);
}

void ItemStates::unwatch(ECfgItemType kind)
{
    if (--m_watchers.at(kind) == 0)
        forget(kind, {});
}

const SItemFacts* ItemStates::find(const ResourceKey& key) const
{
    const auto found = m_facts.constFind(key);
    return found == m_facts.cend() ? nullptr : &*found;
}

void ItemStates::refreshAll()
{
    for (const SKindInfo& kind : KindTable::all()) {
        if (m_watchers.at(kind.type) > 0)
            refreshKind(kind.type);
    }
}

void ItemStates::refreshKind(ECfgItemType kind)
{
    QSet<QString> shown;
    const QVector<SCfg_Item>& items = *MVThemeMgr::init()->getDisplayXML().ofKind(kind);
    for (const SCfg_Item& item : items) {
        shown.insert(item.m_qsGUID);
        request({kind, item.m_qsGUID});
        m_queue.push_back({kind, item.m_qsGUID});
    }
    forget(kind, shown);
    m_jobs.interrupt();
    startScan();
}

void ItemStates::refresh(const QVector<ResourceKey>& keys)
{
    for (auto key = keys.crbegin(); key != keys.crend(); ++key) {
        request(*key);
        m_queue.push_front(*key);
    }
    m_jobs.interrupt();
    startScan();
}

void ItemStates::refreshPictures(const QString& guid)
{
    QVector<ResourceKey> keys;
    for (const SKindInfo& kind : KindTable::all()) {
        if (m_watchers.at(kind.type) > 0 && m_facts.contains({kind.type, guid}))
            keys.append({kind.type, guid});
    }
    if (!keys.isEmpty())
        refresh(keys);
}

/// Looks at the items that use any of these files.
void ItemStates::refreshUsersOf(const QStringList& paths)
{
    QSet<quint32> hashes;
    for (const QString& path : paths) {
        hashes.insert(StateScan::hashOf(path));
        if (!m_requests.isEmpty())
            m_changedFiles.insert(StateScan::hashOf(path), m_lastRequest);
    }
    QVector<ResourceKey> keys;
    for (auto known = m_facts.cbegin(); known != m_facts.cend(); ++known) {
        const QVector<quint32>& used = known->paths;
        if (std::any_of(used.cbegin(), used.cend(),
                        [&hashes](quint32 hash) { return hashes.contains(hash); }))
            keys.append(known.key());
    }
    if (!keys.isEmpty())
        refresh(keys);
}

/// Looks at all items if a check has accepted another release.
void ItemStates::refreshByRelease()
{
    auto current = std::make_shared<AcceptedRelease::Pointer>();
    CatalogueJobs::Job job;
    job.prepare = [current](const CancelToken&) {
        return [current] { *current = AcceptedRelease::current(); };
    };
    job.ended = [this, current] {
        if (std::exchange(m_release, *current) != *current)
            refreshAll();
    };
    m_jobs.add(std::move(job));
}

/// Forgets the items of a kind, except these.
void ItemStates::forget(ECfgItemType kind, const QSet<QString>& kept)
{
    QVector<ResourceKey> gone;
    for (auto known = m_facts.cbegin(); known != m_facts.cend(); ++known) {
        if (known.key().kind == kind && !kept.contains(known.key().guid))
            gone.append(known.key());
    }
    for (const ResourceKey& key : std::as_const(gone))
        m_facts.remove(key);
    gone.clear();
    for (auto waiting = m_requests.cbegin(); waiting != m_requests.cend(); ++waiting) {
        if (waiting.key().kind == kind && !kept.contains(waiting.key().guid))
            gone.append(waiting.key());
    }
    finish(gone);
}

void ItemStates::request(const ResourceKey& key)
{
    const bool isNew = !m_requests.contains(key);
    m_requests.insert(key, ++m_lastRequest);
    if (isNew && m_waiting.at(key.kind)++ == 0)
        emit examiningChanged(key.kind);
}

/// Ends the requests of items that have been looked at, or are gone.
void ItemStates::finish(const QVector<ResourceKey>& keys)
{
    QSet<ECfgItemType> idle;
    for (const ResourceKey& key : keys) {
        if (m_requests.remove(key) > 0 && --m_waiting.at(key.kind) == 0)
            idle.insert(key.kind);
    }
    if (m_requests.isEmpty())
        m_changedFiles.clear();
    if (!keys.isEmpty())
        emit looked(keys);
    for (const ECfgItemType kind : std::as_const(idle))
        emit examiningChanged(kind);
}

void ItemStates::startScan()
{
    if (std::exchange(m_isScanAdded, true))
        return;
    CatalogueJobs::Job job;
    job.prepare = [this](const CancelToken& cancel) { return prepareScan(cancel); };
    job.ended = [this] { endScan(); };
    m_jobs.add(std::move(job));
}

CatalogueJobs::Work ItemStates::prepareScan(const CancelToken& cancel)
{
    m_isScanAdded = false;
    CatalogueIndex shown(MVThemeMgr::init()->getDisplayXML());
    QVector<StateScan::Wanted> wanted;
    QVector<ResourceKey> missing;
    QSet<ResourceKey> seen;
    for (const ResourceKey& key : std::exchange(m_queue, {})) {
        const auto request = m_requests.constFind(key);
        if (request == m_requests.cend() || seen.contains(key))
            continue;
        seen.insert(key);
        if (SCfg_Item* const item = shown.find(key.kind, key.guid))
            wanted.append({item, *request, !m_facts.contains(key)});
        else
            missing.append(key);
    }
    if (!missing.isEmpty()) { // later: a receiver may load the catalogue
        QMetaObject::invokeMethod(
            this, [this, missing] { finish(missing); }, Qt::QueuedConnection);
    }
    if (wanted.isEmpty())
        return {};
    m_scan = std::make_shared<StateScan>(wanted, [this](const QVector<StateScan::Found>& found) {
        QMetaObject::invokeMethod(
            this, [this, found] { take(found); }, Qt::QueuedConnection);
    });
    return [scan = m_scan, cancel] { scan->run(cancel); };
}

void ItemStates::endScan()
{
    const std::shared_ptr<StateScan> ended = std::exchange(m_scan, nullptr);
    if (!ended)
        return;
    const QVector<ResourceKey> left = ended->left();
    for (const ResourceKey& key : left)
        m_queue.push_back(key);
    if (!m_queue.empty())
        startScan();
}

void ItemStates::take(const QVector<StateScan::Found>& found)
{
    QMap<ECfgItemType, QStringList> news;
    QVector<ResourceKey> done;
    QVector<ResourceKey> stale;
    for (const StateScan::Found& item : found) {
        if (m_watchers.at(item.key.kind) > 0 && store(item))
            news[item.key.kind].append(item.key.guid);
        if (!item.facts.hasState || m_requests.value(item.key) != item.request)
            continue;
        (isStale(item) ? stale : done).append(item.key);
    }
    for (auto kind = news.cbegin(); kind != news.cend(); ++kind)
        emit changed(kind.key(), kind.value());
    if (!stale.isEmpty())
        refresh(stale);
    finish(done);
}

/// Returns whether one of the item's files has changed since it was requested. Until its first
/// state is stored, refreshUsersOf() does not know which files it uses.
bool ItemStates::isStale(const StateScan::Found& found) const
{
    const QVector<quint32>& used = found.facts.paths;
    return std::any_of(used.cbegin(), used.cend(), [&](quint32 hash) {
        const auto changed = m_changedFiles.constFind(hash);
        return changed != m_changedFiles.cend() && found.request <= *changed;
    });
}

/// Returns whether anything has changed. What only tells the pictures leaves the state as it was.
bool ItemStates::store(const StateScan::Found& found)
{
    SItemFacts& known = m_facts[found.key];
    bool hasChanged = storePicture(known.thumbnail, found.facts.thumbnail);
    hasChanged = storePicture(known.preview, found.facts.preview) || hasChanged;
    if (!found.facts.hasState)
        return hasChanged;
    hasChanged = hasChanged || !known.hasState || !isSame(known.state, found.facts.state);
    known.hasState = true;
    known.state = found.facts.state;
    known.paths = found.facts.paths;
    return hasChanged;
}
