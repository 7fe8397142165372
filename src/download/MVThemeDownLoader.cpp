// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "download/MVThemeDownLoader.h"

#include "catalogue/MVThemeMgr.h"
#include "download/AcceptedRelease.h"
#include "download/DownloadPacing.h"
#include "download/FileLedger.h"
#include "download/FileTurn.h"
#include "download/LogCategories.h"
#include "download/ResourceEvents.h"
#include "host/HostSettings.h"
#include "host/LogL.h"
#include "records/FileRecord.h"

#include <QFile>
#include <QMutexLocker>

#include <utility>

namespace {

// The numbers of the cancellation points, as they appear in the log.
constexpr int pointBeforeConfig = 179;
constexpr int pointAfterConfig = 202;
constexpr int pointSimulation = 208;
constexpr int pointBeforeList = 218;

constexpr int simulatedSteps = 10;

} // namespace

MVThemeDownLoader::MVThemeDownLoader(QObject* parent)
    : QThread(parent)
{
    qRegisterMetaType<EMVThemeDownLoadError>("EMVThemeDownLoadError");
    connect(
        this, &MVThemeDownLoader::progress, this,
        [this](double percent) {
            const int whole = static_cast<int>(percent);
            if (std::exchange(m_nToldPercent, whole) != whole)
                ResourceEvents::instance()->tellDownloadProgress(m_eKind, m_qsGuid, whole);
        },
        Qt::DirectConnection); // on the download thread
}

MVThemeDownLoader::~MVThemeDownLoader()
{
    cancel();
    wait();
}

void MVThemeDownLoader::download(SCfg_Item* item)
{
    if (isRunning()) {
        if (!m_bEnded)
            return;
        wait(); // the end signal has been sent; only the thread's last steps are left
    }
    m_use.emplace();
    m_bEnded = false;
    m_failure = STransferFailure(); // no thread is running yet
    m_pItem = item;
    m_eKind = item->m_eType;
    m_qsGuid = item->m_qsGUID;
    m_lstPaths.clear();
    m_nToldPercent = -1;
    m_nReceived = 0;
    m_nReceivedOfFile = 0;
    ResourceEvents::instance()->tellDownloadStarted(m_eKind, m_qsGuid);
    start();
}

void MVThemeDownLoader::cancel()
{
    m_bWillCancel.cancel(); // first, so that no transfer begins after the one that ends
    m_CurWrapper.cancel();
}

QString MVThemeDownLoader::downloadedUrl() const
{
    const QMutexLocker lock(&m_mutexCurrent);
    return m_strUrl;
}

QString MVThemeDownLoader::downloadedFile() const
{
    const QMutexLocker lock(&m_mutexCurrent);
    return m_strFile;
}

STransferFailure MVThemeDownLoader::failure() const
{
    const QMutexLocker lock(&m_mutexCurrent);
    return m_failure;
}

SItemDownloadResult MVThemeDownLoader::outcome() const
{
    const QMutexLocker lock(&m_mutexCurrent);
    if (m_eEnd == eDownLoadError_None)
        return {};
    return {isCancelled() ? eItemDownload_Cancelled : eItemDownload_Failed, m_eEnd, m_failure};
}

/// Counts what has arrived since the last call for the same file. A retry starts from zero.
void MVThemeDownLoader::noteReceived(qint64 received)
{
    m_nReceived += qMax<qint64>(0, received - m_nReceivedOfFile);
    m_nReceivedOfFile = received;
}

/// Keeps the first failure: later ones often have the same cause.
void MVThemeDownLoader::noteFailure(const STransferFailure& failure)
{
    const QMutexLocker lock(&m_mutexCurrent);
    if (!m_failure.isFailure())
        m_failure = failure;
}

void MVThemeDownLoader::setCurrent(const QString& url, const QString& file)
{
    {
        const QMutexLocker lock(&m_mutexCurrent);
        m_strUrl = url;
        m_strFile = file;
    }
    emit fileBegun(file);
}

void MVThemeDownLoader::run()
{
    LogL(LogCategories::coordinator, 1, "MVThemeDownLoader::run() start!");
    emit progress(0.0);

    if ((needsConfig() ? fetchThemeConfig() : simulateFirstPhase()) == Step::Ended)
        return;
    if (stopIfCancelled(pointBeforeList))
        return;
    bool anyFailed = false;
    if (fetchFiles(anyFailed) == Step::Ended)
        return;
    end(anyFailed ? eDownLoadError_Element : eDownLoadError_None);
    LogL(LogCategories::coordinator, 1, "MVThemeDownLoader::run() end!");
}

/// Returns whether the theme's own config must be fetched: it is missing or, if the host checks
/// content, cannot be read or parsed.
bool MVThemeDownLoader::needsConfig()
{
    MVThemeMgr* const manager = MVThemeMgr::init();
    if (m_pItem->m_eType != eCfgItem_Theme)
        return false;
    if (!manager->doItem_Info_CfgXML(*m_pItem))
        return true;
    m_bReplacesConfig = hostSettings().checkContent && !manager->ensureThemeParsed(*m_pItem)
        && manager->isDownloadPath(FileView(m_pItem->m_info_CfgXML).file());
    return m_bReplacesConfig;
}

MVThemeDownLoader::Step MVThemeDownLoader::end(EMVThemeDownLoadError result)
{
    {
        const QMutexLocker lock(&m_mutexCurrent);
        m_eEnd = result;
        if (isCancelled())
            m_failure = STransferFailure(); // a cancelled download reports no cause
    }
    // A receiver of the signal may load the catalogue, so nothing of it is touched afterwards.
    m_taken.reset();
    m_use.reset();
    tellEnd();
    m_bEnded = true;
    emit sigDownloadFinish(result);
    return Step::Ended;
}

/// Tells the process, before the own end signal: its receiver may start the next download.
void MVThemeDownLoader::tellEnd()
{
    ResourceEvents* const events = ResourceEvents::instance();
    events->tellDownloadEnded(m_eKind, m_qsGuid, outcome());
    if (!m_lstPaths.isEmpty())
        events->tellFilesChanged(m_lstPaths);
}

bool MVThemeDownLoader::stopIfCancelled(int point)
{
    if (!isCancelled())
        return false;
    LogL(LogCategories::coordinator, 1, "m_bWillCancel == true! will return![line = %d]", point);
    m_CurWrapper.cancel();
    end(eDownLoadError_Cancel);
    return true;
}

bool MVThemeDownLoader::doProgress(double value)
{
    emit progress(value);
    return !isCancelled();
}

MVThemeDownLoader::Step MVThemeDownLoader::simulateFirstPhase()
{
    for (int k = 1; k <= simulatedSteps; ++k) {
        if (stopIfCancelled(pointSimulation))
            return Step::Ended;
        emit progress(static_cast<double>(k) / simulatedSteps * firstPhase);
        DownloadPacing::pause(m_bWillCancel);
    }
    return Step::Continue;
}

/// A second download of the same theme waits here for the first one's config file.
MVThemeDownLoader::Step MVThemeDownLoader::fetchThemeConfig()
{
    SFileInfo& info = m_pItem->m_info_CfgXML;
    while (!take(info)) {
        if (stopIfCancelled(pointBeforeConfig))
            return Step::Ended;
        DownloadPacing::waitForOther(m_bWillCancel);
    }
    const Step step = transferThemeConfig(info);
    m_taken.reset();
    if (step == Step::Ended || stopIfCancelled(pointAfterConfig))
        return Step::Ended;
    return Step::Continue;
}

/// Claims a file for this download, unless another one has it.
bool MVThemeDownLoader::take(SFileInfo& info)
{
    FileRecord::Taken taken = FileRecord(info).take();
    if (!taken)
        return false;
    m_taken.emplace(std::move(taken));
    return true;
}

MVThemeDownLoader::Step MVThemeDownLoader::transferThemeConfig(const SFileInfo& info)
{
    const FileView record(info);
    const QString url = MVThemeMgr::init()->downLoadUrl(MVThemeMgr::eDirTag_Config, record.name());
    const QString file = record.file();
    setCurrent(url, file);
    const QByteArray urlText = url.toUtf8();
    const QByteArray fileText = file.toUtf8();
    LogL(LogCategories::coordinator, 1,
         "start download template(theme cfg xml), m_strUrl = %s, m_strFile = %s",
         urlText.constData(), fileText.constData());
    const AcceptedRelease::Source source =
        AcceptedRelease::sourceOf(url, AcceptedRelease::current());
    STransferFailure fault = FileTurn::faultOf(url, file, &FileTurn::logNow);
    if (!fault.isFailure() && source.isRefused)
        fault = AcceptedRelease::refusalOf(url, file);
    if (fault.isFailure()) {
        noteFailure(fault);
        return end(eDownLoadError_Path);
    }
    if (stopIfCancelled(pointBeforeConfig))
        return Step::Ended;

    if (QFile::exists(file) && !m_bReplacesConfig) {
        doProgress(firstPhase); // another download has fetched it meanwhile
    } else {
        m_CurWrapper.setDownloadProgressCallback(&downloadProgressCallback, this);
        m_CurWrapper.downloadPublished(url, file, source.contentUrl, source.published);
        if (m_CurWrapper.result() != eTransfer_Success)
            return configFailed(url, file);
        FileLedger::instance()->note(file, source.published);
    }
    LogL(LogCategories::coordinator, 1,
         "download template is ok!(theme cfg xml), m_strUrl = %s, m_strFile = %s",
         urlText.constData(), fileText.constData());
    return takeConfig(url, file);
}

MVThemeDownLoader::Step MVThemeDownLoader::configFailed(const QString& url, const QString& file)
{
    const int result = m_CurWrapper.result();
    LogL(LogCategories::coordinator, 1,
         "download template is error!(theme cfg xml),m_strUrl = %s, m_strFile = %s, "
         "m_CurWrapper.result() = %d",
         url.toUtf8().constData(), file.toUtf8().constData(), result);
    // The old file may be intact and was only temporarily unreadable.
    if (m_bReplacesConfig && MVThemeMgr::init()->ensureThemeParsed(*m_pItem))
        return Step::Continue;
    noteFailure(m_CurWrapper.failure());
    if (!m_bReplacesConfig)
        QFile::remove(file);
    return end(result == eTransfer_Network ? eDownLoadError_Internet : eDownLoadError_Unknown);
}

/// Other threads may look at the item meanwhile: they see no config or a complete one.
MVThemeDownLoader::Step MVThemeDownLoader::takeConfig(const QString& url, const QString& file)
{
    SThemes_a* parsed = nullptr;
    MVThemeMgr::init()->read_resource_config_Themes_a(file, parsed);
    if (parsed)
        m_pItem->setParsedTheme(parsed);
    if (parsed || !hostSettings().checkContent)
        return Step::Continue;
    noteFailure(
        {eFailure_Damaged, url, file,
         QStringLiteral("%1: cannot be read as a theme's config (local file %2)").arg(url, file)});
    return end(eDownLoadError_Unknown);
}

bool MVThemeDownLoader::downloadProgressCallback(qint64 received, qint64 total, void* user)
{
    auto* const self = static_cast<MVThemeDownLoader*>(user);
    if (!self)
        return true;
    self->noteReceived(received);
    if (total > 0)
        self->doProgress(static_cast<double>(received) / static_cast<double>(total) * firstPhase);
    return !self->isCancelled();
}
