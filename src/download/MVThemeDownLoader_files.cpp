// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

// MVThemeDownLoader: the second phase, the item's files.

#include "download/MVThemeDownLoader.h"

#include "catalogue/MVThemeMgr.h"
#include "download/DownloadPacing.h"
#include "download/FileTurn.h"
#include "download/SideBySideFiles.h"
#include "host/CoreContext.h"
#include "host/HostSettings.h"
#include "records/FileRecord.h"

#include <QDir>

#include <mutex>
#include <utility>

namespace {

constexpr int pointBeforeFile = 231;
constexpr int pointWaiting = 240;

constexpr double secondPhase = 90.0; // per cent

std::mutex contextMutex; // guards MVThemeDownLoader::m_pqdCoreContext

} // namespace

CBasePtr<CoreContext> MVThemeDownLoader::m_pqdCoreContext;

void MVThemeDownLoader::setCoreContextPtr(CBasePtr<CoreContext> context)
{
    const std::lock_guard<std::mutex> lock(contextMutex);
    m_pqdCoreContext.swap(context);
}

CBasePtr<CoreContext> MVThemeDownLoader::coreContext()
{
    const std::lock_guard<std::mutex> lock(contextMutex);
    return m_pqdCoreContext;
}

double MVThemeDownLoader::share() const
{
    return secondPhase / m_vecFiles.size();
}

double MVThemeDownLoader::shareStart() const
{
    return firstPhase + m_nIndex * share();
}

MVThemeDownLoader::Step MVThemeDownLoader::fetchFiles(bool& anyFailed)
{
    m_nIndex = -1;
    if (!MVThemeMgr::init()->ensureThemeParsed(*m_pItem) && hostSettings().checkContent) {
        const QString file = FileView(m_pItem->m_info_CfgXML).file();
        noteFailure({eFailure_Damaged, QString(), file,
                     QStringLiteral("%1 cannot be read as a theme's config").arg(file)});
        anyFailed = true;
    }
    if (!MVThemeMgr::init()->listNeededFiles(m_pItem, m_vecFiles)) {
        noteFailure({eFailure_Damaged, QString(), QString(),
                     QStringLiteral("%1 needs more than %2 files")
                         .arg(m_pItem->m_qsGUID, QString::number(MVThemeMgr::maxNeededFiles))});
        m_vecFiles.clear();
        anyFailed = true;
    }
    noteFiles();
    const Step step = hostSettings().transfersSideBySide > 1 ? fetchSideBySide(anyFailed)
                                                             : fetchInOrder(anyFailed);
    m_vecFiles = QVector<SFileInfo*>();
    m_nIndex = -1;
    return step;
}

/// Notes the places of the files, since the records cannot be used after the end.
void MVThemeDownLoader::noteFiles()
{
    const auto note = [this](const SFileInfo& info) {
        const QString file = FileView(info).file();
        if (!file.isEmpty())
            m_lstPaths.append(QDir::cleanPath(file));
    };
    note(m_pItem->m_info_CfgXML);
    for (const SFileInfo* const info : std::as_const(m_vecFiles))
        note(*info);
    m_lstPaths.removeDuplicates();
}

MVThemeDownLoader::Step MVThemeDownLoader::fetchSideBySide(bool& anyFailed)
{
    SideBySideFiles::Reports reports;
    reports.received = [this](qint64 bytes) { m_nReceived += bytes; };
    reports.progress = [this](double share) { doProgress(firstPhase + secondPhase * share); };
    reports.begun = [this](const QString& url, const QString& file) { setCurrent(url, file); };
    reports.failed = [this, &anyFailed](const STransferFailure& failure) {
        anyFailed = true;
        noteFailure(failure);
    };
    SideBySideFiles files(m_vecFiles, hostSettings().transfersSideBySide, m_bWillCancel,
                          coreContext(), reports);
    switch (files.run()) {
    case SideBySideFiles::End::Complete:
        return Step::Continue;
    case SideBySideFiles::End::CancelledWaiting:
        stopIfCancelled(pointWaiting);
        break;
    case SideBySideFiles::End::CancelledBeforeFile:
        stopIfCancelled(pointBeforeFile);
        break;
    }
    return Step::Ended;
}

MVThemeDownLoader::Step MVThemeDownLoader::fetchInOrder(bool& anyFailed)
{
    const AcceptedRelease::Pointer release = AcceptedRelease::current();
    for (int i = 0; i < m_vecFiles.size(); ++i) {
        DownloadPacing::pause(m_bWillCancel);
        if (stopIfCancelled(pointBeforeFile))
            return Step::Ended;
        m_nIndex = i;
        m_nReceivedOfFile = 0;
        FileTurn turn(*m_vecFiles.at(i), i, release, &FileTurn::logNow);
        if (turn.take())
            anyFailed = !fetchFile(turn) || anyFailed;
        else if (waitForOther(turn) == Step::Ended)
            return Step::Ended;
    }
    return Step::Continue;
}

/// Fetches a file that this thread has taken.
bool MVThemeDownLoader::fetchFile(FileTurn& turn)
{
    turn.begin();
    setCurrent(turn.url(), turn.file());
    const STransferFailure fault = turn.prepare();
    if (fault.isFailure()) {
        noteFailure(fault);
        return false;
    }
    // Another download, or an earlier entry of the list, may have fetched the file meanwhile.
    if (turn.isPresent()) {
        doProgress(shareStart() + share());
        turn.end({}, eTransfer_Success, false, coreContext(), FileTurn::OfOthers::Keep);
        return true;
    }
    m_CurWrapper.setDownloadProgressCallback(&downloadProgressCallback_a, this);
    m_CurWrapper.downloadPublished(turn.url(), turn.file(), turn.source().contentUrl,
                                   turn.source().published);
    const STransferFailure failure = m_CurWrapper.failure();
    turn.end(failure, m_CurWrapper.result(), true, coreContext(), FileTurn::OfOthers::Remove);
    if (!failure.isFailure() || !turn.isRequired())
        return true;
    noteFailure(failure);
    return false;
}

/// The other thread's outcome is ignored: if the file is still missing, the next download fetches
/// it.
MVThemeDownLoader::Step MVThemeDownLoader::waitForOther(const FileTurn& turn)
{
    do {
        if (stopIfCancelled(pointWaiting))
            return Step::Ended;
        turn.logWaiting();
        downloadProgressCallback_a_downloading(&turn.info(), this);
        DownloadPacing::waitForOther(m_bWillCancel);
    } while (turn.isTakenByOther());
    turn.logEndOfWaiting();
    return Step::Continue;
}

bool MVThemeDownLoader::downloadProgressCallback_a(qint64 received, qint64 total, void* user)
{
    auto* const self = static_cast<MVThemeDownLoader*>(user);
    if (!self)
        return true;
    FileRecord(*self->m_vecFiles.at(self->m_nIndex)).setCounts({received, total});
    self->noteReceived(received);
    if (total > 0) {
        const double part = static_cast<double>(received) / static_cast<double>(total);
        self->doProgress(self->shareStart() + part * self->share());
    }
    return !self->isCancelled();
}

bool MVThemeDownLoader::downloadProgressCallback_a_downloading(SFileInfo* info, void* user)
{
    auto* const self = static_cast<MVThemeDownLoader*>(user);
    if (!self)
        return true;
    const FileView record(*info);
    const FileView::Counts counts = record.counts();
    self->noteReceived(counts.receivedBytes);
    if (counts.receivedBytes == 0 || counts.totalBytes == 0)
        return true;
    const double value = self->shareStart()
        + static_cast<double>(counts.receivedBytes) / static_cast<double>(counts.totalBytes)
            * self->share();
    FileTurn::logNow(FileTurn::othersProgress(self->m_nIndex, record, value));
    self->doProgress(value);
    return !self->isCancelled();
}
