// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "download/FileStates.h"

#include "catalogue/MVThemeMgr.h"
#include "catalogue/PathGuard.h"
#include "download/FileLedger.h"
#include "host/ContentDigest.h"
#include "host/HostSettings.h"

#include <QFileInfo>

#include <utility>

namespace {

/// Returns the more important of two states of an item's files.
EFileState worse(EFileState left, EFileState right)
{
    for (const EFileState state : {eFile_Missing, eFile_Damaged, eFile_Outdated, eFile_Unlisted}) {
        if (left == state || right == state)
            return state;
    }
    return eFile_Current;
}

} // namespace

FileStates::FileStates(Depth depth, Progress progress)
    : m_depth(depth)
    , m_progress(std::move(progress))
    , m_release(AcceptedRelease::current())
{
}

bool FileStates::isManaged(const ItemFiles::Entry& entry)
{
    return MVThemeMgr::init()->isDownloadPath(entry.path);
}

SPublishedContent FileStates::publishedOf(const ItemFiles::Entry& entry) const
{
    return AcceptedRelease::sourceOf(entry.url, m_release).published;
}

EFileState FileStates::of(const ItemFiles::Entry& entry) const
{
    if (!entry.isPresent)
        return eFile_Missing;
    if (!isManaged(entry))
        return eFile_Current;
    const SPublishedContent published = publishedOf(entry);
    if (!published.isKnown())
        return eFile_Unlisted;
    const QByteArray noted = FileLedger::instance()->noteOf(entry.path);
    const QByteArray digest = digestOf(entry.path);
    if (digest == published.m_digest)
        return eFile_Current;
    if (digest.isEmpty()) // it cannot be read, unless nobody wants to know any more
        return m_isCancelled ? eFile_Unlisted : eFile_Damaged;
    return !noted.isEmpty() && noted != digest ? eFile_Damaged : eFile_Outdated;
}

/// Returns the digest of a file; empty if it could not be read.
QByteArray FileStates::digestOf(const QString& path) const
{
    QByteArray noted = FileLedger::instance()->digestOf(path);
    if (m_depth == Depth::Quick && !noted.isEmpty())
        return noted;
    const auto known = m_read.constFind(path);
    if (known != m_read.cend())
        return *known;
    const QByteArray digest = read(path);
    m_read.insert(path, digest);
    if (!digest.isEmpty() && !noted.isEmpty() && digest != noted)
        FileLedger::instance()->doubt(path);
    return digest;
}

QByteArray FileStates::read(const QString& path) const
{
    qint64 told = 0;
    const QByteArray digest = ContentDigest::ofFile(path, [&](qint64 bytesRead) {
        const qint64 news = bytesRead - std::exchange(told, bytesRead);
        m_isCancelled = m_progress && !m_progress(news);
        return !m_isCancelled;
    });
    // Keeps the digest with which a file came, so that it stays known as damaged.
    FileLedger* const ledger = FileLedger::instance();
    if (!digest.isEmpty() && ledger->noteOf(path).isEmpty())
        ledger->note(path, {digest, QFileInfo(path).size()});
    return digest;
}

bool FileStates::isNeeded(const ItemFiles::Entry& entry)
{
    const bool isPicture =
        entry.role == ItemFiles::Role::Thumbnail || entry.role == ItemFiles::Role::Preview;
    return !isPicture || !hostSettings().showWithoutPreviews;
}

/// Visits the files of an item that are on disk, and those that are to be fetched. Returns how many
/// must be fetched before it can be used.
int FileStates::forEach(SCfg_Item& item, const Visit& visit) const
{
    const bool isReadable =
        MVThemeMgr::init()->ensureThemeParsed(item) || !hostSettings().checkContent;
    const ItemFiles::Missing missing = ItemFiles::missingOf(item);
    const ItemFiles files(item);
    for (const ItemFiles::Entry& entry : files.entries()) {
        if (!entry.isPresent && !missing.paths.contains(entry.path))
            continue;
        const EFileState state = of(entry);
        const bool isOwnConfig = entry.item == &item && entry.role == ItemFiles::Role::Config;
        const bool isBroken = isOwnConfig && !isReadable && state == eFile_Unlisted;
        visit(entry, isBroken ? eFile_Damaged : state);
    }
    return missing.needed;
}

SItemState FileStates::of(SCfg_Item& item) const
{
    SItemState state;
    state.m_nNeeded = forEach(item, [&](const ItemFiles::Entry& entry, EFileState fileState) {
        state.m_nBytesOnDisk += entry.sizeBytes;
        state.m_nBytes += entry.sizeBytes;
        if (fileState != eFile_Missing || isNeeded(entry))
            state.m_eState = worse(state.m_eState, fileState);
        if (fileState == eFile_Current || fileState == eFile_Unlisted)
            return;
        const SPublishedContent published = publishedOf(entry);
        ++state.m_nToFetch;
        state.m_nBytesToFetch += published.m_sizeBytes;
        if (fileState == eFile_Missing)
            state.m_nBytes += published.m_sizeBytes;
        const bool isUnread = entry.role == ItemFiles::Role::Config && fileState == eFile_Missing
            && entry.item->m_eType == eCfgItem_Theme;
        state.m_bBytesKnown = state.m_bBytesKnown && published.isKnown() && !isUnread;
    });
    return state;
}

QVector<SItemState> FileStates::of(const QVector<SCfg_Item*>& items) const
{
    const PathGuard::Folders folders;
    QVector<SItemState> states;
    states.reserve(items.size());
    for (SCfg_Item* const item : items)
        states.append(of(*item));
    return states;
}

QVector<ItemFiles::Entry> FileStates::toFetch(SCfg_Item& item) const
{
    QVector<ItemFiles::Entry> entries;
    forEach(item, [&](const ItemFiles::Entry& entry, EFileState state) {
        if (state != eFile_Current && state != eFile_Unlisted)
            entries.append(entry);
    });
    return entries;
}
