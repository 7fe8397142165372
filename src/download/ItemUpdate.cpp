// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "download/ItemUpdate.h"

#include "catalogue/MVThemeMgr.h"
#include "download/FileLedger.h"
#include "download/FileTurn.h"
#include "download/LogCategories.h"
#include "download/MVThemeDownLoader.h"
#include "download/ResourceEvents.h"
#include "download/RootPlaces.h"
#include "download/UpdateFiles.h"
#include "host/AppOptions.h"
#include "host/ContentDigest.h"
#include "host/FileLock.h"
#include "host/HostSettings.h"
#include "host/LogL.h"
#include "host/TransferPool.h"
#include "host/Utils.h"
#include "records/SCfg_Item.h"
#include "records/SThemes_a.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStringList>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <utility>

namespace {

/// Moves a file over another one, atomically on one file system.
bool replace(const QString& from, const QString& to)
{
    const QByteArray source = QFile::encodeName(from);
    const QByteArray target = QFile::encodeName(to);
    if (std::rename(source.constData(), target.constData()) == 0)
        return true;
    // A folder of the root may be on another file system.
    return Utils::copyFileToPath(from, to, true) && QFile::remove(from);
}

} // namespace

/// One run of an update.
class ItemUpdate::Run
{
public:
    Run(const ItemUpdate& update, const QVector<SCfg_Item*>& items)
        : m_update(update)
        , m_files(items, RootPlaces::arrivals())
    {
    }

    SUpdateOutcome end();
    /// Returns the paths of the files that were stored or replaced.
    const QStringList& stored() const { return m_stored; }

private:
    using File = UpdateFiles::File;

    void fetch();
    bool isFetchable(File& file);
    void start(TransferPool& pool, File& file);
    void store();
    bool storeFile(const File& file);
    void fail(File& file, const STransferFailure& failure);
    void tellProgress();
    bool isCancelled() const { return m_update.m_cancel.isCancelled(); }

    const ItemUpdate& m_update;
    UpdateFiles m_files;
    qint64 m_toldBytes = 0;
    QStringList m_stored;
    SUpdateOutcome m_outcome;
};

SUpdateOutcome ItemUpdate::Run::end()
{
    fetch();
    if (isCancelled()) {
        m_outcome.m_eEnd = eItemUpdate_Cancelled;
        return m_outcome;
    }
    store();
    if (!m_outcome.m_vecFailures.isEmpty())
        m_outcome.m_eEnd = eItemUpdate_Failed;
    return m_outcome;
}

/// Definitions of themes come first, alone: what they use is known only then.
void ItemUpdate::Run::fetch()
{
    while (!isCancelled()) {
        QVector<File*> files = m_files.toFetch();
        if (files.isEmpty())
            return;
        if (UpdateFiles::hasThemes(files))
            files.erase(std::find_if(files.begin(), files.end(),
                                     [](const File* file) { return !file->isThemeDefinition(); }),
                        files.end());
        TransferPool pool(hostSettings().transfersSideBySide, m_update.m_cancel);
        for (File* const file : qAsConst(files)) {
            if (isFetchable(*file))
                start(pool, *file);
        }
        while (pool.isBusy())
            pool.step();
        const QVector<File*> unreadable = m_files.addUsed();
        for (File* const file : unreadable) {
            fail(*file,
                 {eFailure_Damaged, file->entry.url, file->entry.path,
                  QStringLiteral("%1: cannot be read as a theme's config").arg(file->entry.url)});
        }
    }
}

/// Returns false if the file has arrived before, or must not be fetched.
bool ItemUpdate::Run::isFetchable(File& file)
{
    const SPublishedContent& published = file.source.published;
    if (published.isKnown() && QFileInfo(file.staged).size() == published.m_sizeBytes
        && ContentDigest::ofFile(file.staged) == published.m_digest) {
        file.isReady = true;
        return false;
    }
    STransferFailure fault =
        FileTurn::faultOf(file.entry.url, file.entry.path, [](const QString&) {});
    if (!fault.isFailure() && file.source.isRefused)
        fault = AcceptedRelease::refusalOf(file.entry.url, file.entry.path);
    if (!fault.isFailure())
        return true;
    fail(file, fault);
    return false;
}

void ItemUpdate::Run::start(TransferPool& pool, File& file)
{
    TransferPool::Job job;
    job.url = file.entry.url;
    job.file = file.staged;
    job.contentUrl = file.source.contentUrl;
    job.published = file.source.published;
    job.progress = [this, &file](qint64 received, qint64 total) {
        file.received = received;
        file.total = std::max(file.total, total);
        tellProgress();
        return true;
    };
    job.ended = [this, &file](const STransferOutcome& outcome) {
        if (outcome.m_eResult != eTransfer_Success)
            return fail(file, outcome.m_failure);
        file.isReady = true;
        m_outcome.m_nFetchedBytes += QFileInfo(file.staged).size();
    };
    pool.start(std::move(job));
}

/// Pictures that items can be used without are not a reason to call the update failed.
void ItemUpdate::Run::fail(File& file, const STransferFailure& failure)
{
    file.isFailed = true;
    file.isReady = false;
    LogL(LogCategories::itemUpdate, 2, "update: %s", failure.m_qsDetails.toUtf8().constData());
    if (FileStates::isNeeded(file.entry)
        && m_outcome.m_vecFailures.size() < SUpdateOutcome::maxFailures)
        m_outcome.m_vecFailures.append(failure);
}

void ItemUpdate::Run::store()
{
    const QVector<File*> files = m_files.toStore();
    for (File* const file : files) {
        if (isCancelled()) {
            m_outcome.m_eEnd = eItemUpdate_Cancelled;
            return;
        }
        if (storeFile(*file)) {
            ++m_outcome.m_nStored;
            m_stored.append(file->entry.path);
            continue;
        }
        fail(*file,
             {eFailure_LocalFile, file->entry.url, file->entry.path,
              QStringLiteral("%1 cannot be replaced").arg(file->entry.path)});
    }
}

bool ItemUpdate::Run::storeFile(const File& file)
{
    const QString& path = file.entry.path;
    AppOptions::instance()->ensureDirExists(QFileInfo(path).path());
    if (!replace(file.staged, path))
        return false;
    FileLedger::instance()->note(path, file.source.published);
    const bool isPicture = file.entry.role == ItemFiles::Role::Thumbnail
        || file.entry.role == ItemFiles::Role::Preview;
    if (!isPicture)
        FileTurn::followArrival(path, MVThemeDownLoader::coreContext());
    return true;
}

/// A retry may start from zero; the progress must not decrease.
void ItemUpdate::Run::tellProgress()
{
    if (!m_update.m_progress)
        return;
    m_toldBytes = std::max(m_toldBytes, m_files.receivedBytes());
    m_update.m_progress(m_toldBytes, std::max(m_toldBytes, m_files.totalBytes()));
}

ItemUpdate::ItemUpdate(CancelToken cancel)
    : m_cancel(std::move(cancel))
{
}

ItemUpdate::~ItemUpdate() = default;

SUpdateOutcome ItemUpdate::updateItems(const QVector<SCfg_Item*>& items)
{
    AppOptions::instance()->ensureDirExists(RootPlaces::arrivals());
    FileLock lock(RootPlaces::updatesLock());
    if (lock.lock(m_cancel) == FileLock::Result::Cancelled) {
        SUpdateOutcome outcome;
        outcome.m_eEnd = eItemUpdate_Cancelled;
        return outcome;
    }
    Run run(*this, items);
    const SUpdateOutcome outcome = run.end();
    QDir().rmdir(RootPlaces::arrivals()); // unless something has been left for later
    for (SCfg_Item* const item : items) {
        if (item && item->m_eType == eCfgItem_Theme)
            MVThemeMgr::init()->parseThemeAgain(*item);
    }
    if (!run.stored().isEmpty())
        ResourceEvents::instance()->tellFilesChanged(run.stored());
    return outcome;
}

void ItemUpdate::removeLeftovers()
{
    FileLock lock(RootPlaces::updatesLock());
    if (!QFileInfo::exists(RootPlaces::arrivals())
        || lock.lock(std::chrono::milliseconds(0)) != FileLock::Result::Locked)
        return;
    Utils::rmDir(RootPlaces::arrivals(), true);
}
