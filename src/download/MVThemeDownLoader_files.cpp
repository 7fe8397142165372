// MVThemeDownLoader: the second phase, one file after the other.

#include "download/MVThemeDownLoader.h"

#include "catalogue/MVThemeMgr.h"
#include "download/DownloadPacing.h"
#include "host/AppOptions.h"
#include "host/CoreContext.h"
#include "host/HostSettings.h"
#include "host/LogL.h"
#include "host/VString.h"
#include "records/FileRecord.h"

#include <QFile>
#include <QFileInfo>

#include <mutex>

namespace {

constexpr int pointBeforeFile = 231;
constexpr int pointWaiting = 240;

constexpr double firstPhase = 10.0; // per cent
constexpr double secondPhase = 90.0;

std::mutex contextMutex; // guards MVThemeDownLoader::m_pqdCoreContext

/// Logs a line about a file's turn; the thread's number is always given as 0.
void logTurn(const QString& form, int index, const QString& file)
{
    const QString text = form.arg(QString::number(0), QString::number(index), file);
    LogL("MVThemeDownLoader", 1, "%s", text.toUtf8().constData());
}

/// Creates the folder named after the definition or archive beside it, for its unpacked content.
void ensureFolderBeside(const QString& file)
{
    const QFileInfo info(file);
    const QString baseName = info.completeBaseName();
    const QString folder = info.path() + QLatin1Char('/') + baseName;
    // For a file without a suffix, the folder would take the file's own name.
    if (baseName != info.fileName() && MVThemeMgr::init()->isDownloadPath(folder))
        AppOptions::instance()->ensureDirExists(folder);
}

} // namespace

CBasePtr<CoreContext> MVThemeDownLoader::m_pqdCoreContext;

void MVThemeDownLoader::setCoreContextPtr(CBasePtr<CoreContext> context)
{
    const std::lock_guard<std::mutex> lock(contextMutex);
    m_pqdCoreContext.swap(context);
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
    m_vecFiles.clear();
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
    Step step = Step::Continue;
    for (int i = 0; i < m_vecFiles.size() && step == Step::Continue; ++i) {
        DownloadPacing::pause(m_bWillCancel);
        if (stopIfCancelled(pointBeforeFile)) {
            step = Step::Ended;
            break;
        }
        m_nIndex = i;
        SFileInfo& info = *m_vecFiles.at(i);
        if (take(info))
            anyFailed = !fetchFile(info) || anyFailed;
        else
            step = waitForOther(info);
    }
    m_vecFiles = QVector<SFileInfo*>();
    m_nIndex = -1;
    return step;
}

/// Fetches a file that this thread has taken, and releases it before logging that.
bool MVThemeDownLoader::fetchFile(const SFileInfo& info)
{
    const FileView record(info);
    const QString file = record.file();
    logTurn(QStringLiteral("thread id = [%1], index = [%2], download file = [%3], start Download!"),
            m_nIndex, file);
    const QString url = MVThemeMgr::init()->addressOf(info);
    setCurrent(url, file);
    if (MVThemeMgr::init()->isDownloadPath(file))
        AppOptions::instance()->ensureDirExists(QFileInfo(file).path());
    LogL("MVThemeDownLoader", 1, "start download template, i = %d, m_strUrl = %s, m_strFile = %s",
         m_nIndex, url.toUtf8().constData(), file.toUtf8().constData());
    if (!checkPlaces(url, file)) {
        m_taken.reset();
        return false;
    }
    const bool ok = transferFile(url, file);
    m_taken.reset();
    logTurn(QStringLiteral("thread id = [%1], index = [%2], download file = [%3], end Download!"),
            m_nIndex, file);
    return ok;
}

bool MVThemeDownLoader::transferFile(const QString& url, const QString& file)
{
    // Another download, or an earlier entry of the list, may have fetched the file meanwhile.
    const bool present = QFile::exists(file);
    int result = eTransfer_Success;
    if (present) {
        doProgress(shareStart() + share());
    } else {
        m_CurWrapper.setDownloadProgressCallback(&downloadProgressCallback_a, this);
        m_CurWrapper.download(url, file, false);
        result = m_CurWrapper.result();
        ensureFolderBeside(file);
    }
    if (result != eTransfer_Success) {
        LogL("MVThemeDownLoader", 1,
             "download template is error!, i = %d, m_strUrl = %s, m_strFile = %s, "
             "m_CurWrapper.result() = %d",
             m_nIndex, url.toUtf8().constData(), file.toUtf8().constData(), result);
        noteFailure(m_CurWrapper.failure());
        QFile::remove(file);
        return false;
    }
    LogL("MVThemeDownLoader", 1, "download template is ok!, i = %d, m_strUrl = %s, m_strFile = %s",
         m_nIndex, url.toUtf8().constData(), file.toUtf8().constData());
    if (!present)
        passOn(file);
    return true;
}

/// Notifies the host's editing core of a new definition.
void MVThemeDownLoader::passOn(const QString& file) const
{
    const QFileInfo info(file);
    if (info.suffix().toLower() != QLatin1String("xml"))
        return;
    CBasePtr<CoreContext> context;
    {
        const std::lock_guard<std::mutex> lock(contextMutex);
        context = m_pqdCoreContext;
    }
    if (!context)
        return;
    const std::wstring name = VString(info.completeBaseName()).toPath();
    if (file.contains(QLatin1String("VideoFilters")))
        context->addVideoFilter(name);
    else if (file.contains(QLatin1String("Transitions")))
        context->addTransition(name);
    else if (file.contains(QLatin1String("Motions")))
        context->addMotion(name);
}

/// The other thread's outcome is ignored: if the file is still missing, the next download fetches
/// it.
MVThemeDownLoader::Step MVThemeDownLoader::waitForOther(SFileInfo& info)
{
    const FileView record(info);
    do {
        if (stopIfCancelled(pointWaiting))
            return Step::Ended;
        logTurn(QStringLiteral("thread id = [%1], index = [%2], download file = [%3], start "
                               "Download!,and it is downloading!"),
                m_nIndex, record.file());
        downloadProgressCallback_a_downloading(&info, this);
        DownloadPacing::pause(m_bWillCancel);
    } while (record.isTaken());
    logTurn(QStringLiteral("thread id = [%1], index = [%2], download file = [%3], end "
                           "Download!,and it is downloading!"),
            m_nIndex, record.file());
    return Step::Continue;
}

bool MVThemeDownLoader::downloadProgressCallback_a(qint64 received, qint64 total, void* user)
{
    auto* const self = static_cast<MVThemeDownLoader*>(user);
    if (!self)
        return true;
    FileRecord(*self->m_vecFiles.at(self->m_nIndex)).setCounts({received, total});
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
    if (counts.receivedBytes == 0 || counts.totalBytes == 0)
        return true;
    const double value = self->shareStart()
        + static_cast<double>(counts.receivedBytes) / static_cast<double>(counts.totalBytes)
            * self->share();
    const QString text =
        QStringLiteral("thread id = [%1], index = [%2], download file = [%3], nDownloaded = "
                       "[%4], nAll = [%5], progress = [%6]!,and it is downloading!")
            .arg(QString::number(0), QString::number(self->m_nIndex), record.file(),
                 QString::number(counts.receivedBytes), QString::number(counts.totalBytes),
                 QStringLiteral("%1").arg(value));
    LogL("MVThemeDownLoader", 1, "downloadProgressCallback_a_downloading, %s",
         text.toUtf8().constData());
    self->doProgress(value);
    return !self->isCancelled();
}
