// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "download/FileTurn.h"

#include "catalogue/MVThemeMgr.h"
#include "download/FileLedger.h"
#include "download/LogCategories.h"
#include "host/AppOptions.h"
#include "host/CoreContext.h"
#include "host/HostSettings.h"
#include "host/LogL.h"
#include "host/VString.h"

#include <QFile>
#include <QFileInfo>

#include <string>
#include <utility>

namespace {

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

/// Notifies the host's editing core of a new definition.
void passOn(const QString& file, const CBasePtr<CoreContext>& context)
{
    const QFileInfo info(file);
    if (!context || info.suffix().toLower() != QLatin1String("xml"))
        return;
    const std::wstring name = VString(info.completeBaseName()).toPath();
    if (file.contains(QLatin1String("VideoFilters")))
        context->addVideoFilter(name);
    else if (file.contains(QLatin1String("Transitions")))
        context->addTransition(name);
    else if (file.contains(QLatin1String("Motions")))
        context->addMotion(name);
}

} // namespace

FileTurn::FileTurn(SFileInfo& info, int index, AcceptedRelease::Pointer release, Log log)
    : m_info(info)
    , m_index(index)
    , m_log(std::move(log))
    , m_release(std::move(release))
{
}

void FileTurn::followArrival(const QString& file, const CBasePtr<CoreContext>& context)
{
    ensureFolderBeside(file);
    passOn(file, context);
}

bool FileTurn::take()
{
    FileRecord::Taken taken = FileRecord(m_info).take();
    if (!taken)
        return false;
    m_taken.emplace(std::move(taken));
    return true;
}

void FileTurn::begin()
{
    logTurn(
        QStringLiteral("thread id = [%1], index = [%2], download file = [%3], start Download!"));
    m_url = MVThemeMgr::init()->addressOf(m_info);
    m_source = AcceptedRelease::sourceOf(m_url, m_release);
}

STransferFailure FileTurn::prepare()
{
    const QString path = file();
    if (MVThemeMgr::init()->isDownloadPath(path))
        AppOptions::instance()->ensureDirExists(QFileInfo(path).path());
    m_log(QString::asprintf("start download template, i = %d, m_strUrl = %s, m_strFile = %s",
                            m_index, m_url.toUtf8().constData(), path.toUtf8().constData()));
    STransferFailure fault = faultOf(m_url, path, m_log);
    if (!fault.isFailure() && m_source.isRefused)
        fault = AcceptedRelease::refusalOf(m_url, path);
    if (fault.isFailure())
        m_taken.reset();
    return fault;
}

bool FileTurn::isPresent() const
{
    return QFile::exists(file());
}

void FileTurn::end(const STransferFailure& failure, int result, bool isTransferred,
                   const CBasePtr<CoreContext>& context, OfOthers ofOthers)
{
    const QString path = file();
    const QByteArray url = m_url.toUtf8();
    const QByteArray local = path.toUtf8();
    if (isTransferred)
        ensureFolderBeside(path);
    if (failure.isFailure()) {
        m_log(QString::asprintf("download template is error!, i = %d, m_strUrl = %s, m_strFile = "
                                "%s, m_CurWrapper.result() = %d",
                                m_index, url.constData(), local.constData(), result));
        if (ofOthers == OfOthers::Remove)
            QFile::remove(path);
    } else {
        m_log(QString::asprintf("download template is ok!, i = %d, m_strUrl = %s, m_strFile = %s",
                                m_index, url.constData(), local.constData()));
        if (isTransferred) {
            FileLedger::instance()->note(path, m_source.published);
            passOn(path, context);
        }
    }
    m_taken.reset();
    logTurn(QStringLiteral("thread id = [%1], index = [%2], download file = [%3], end Download!"));
}

bool FileTurn::isRequired() const
{
    return !hostSettings().showWithoutPreviews || !FileView(m_info).isDisplayHalf();
}

bool FileTurn::isTakenByOther() const
{
    return !m_taken && FileView(m_info).isTaken();
}

void FileTurn::logWaiting() const
{
    logTurn(QStringLiteral("thread id = [%1], index = [%2], download file = [%3], start "
                           "Download!,and it is downloading!"));
}

void FileTurn::logEndOfWaiting() const
{
    logTurn(QStringLiteral("thread id = [%1], index = [%2], download file = [%3], end "
                           "Download!,and it is downloading!"));
}

/// The thread's number is always given as 0.
void FileTurn::logTurn(const QString& form) const
{
    m_log(form.arg(QString::number(0), QString::number(m_index), file()));
}

QString FileTurn::othersProgress(int index, const FileView& record, double progress)
{
    const FileView::Counts counts = record.counts();
    const QString text =
        QStringLiteral("thread id = [%1], index = [%2], download file = [%3], nDownloaded = "
                       "[%4], nAll = [%5], progress = [%6]!,and it is downloading!")
            .arg(QString::number(0), QString::number(index), record.file(),
                 QString::number(counts.receivedBytes), QString::number(counts.totalBytes),
                 QStringLiteral("%1").arg(progress));
    return QString::asprintf("downloadProgressCallback_a_downloading, %s",
                             text.toUtf8().constData());
}

void FileTurn::logNow(const QString& line)
{
    LogL(LogCategories::coordinator, 1, "%s", line.toUtf8().constData());
}

STransferFailure FileTurn::faultOf(const QString& url, const QString& file, const Log& log)
{
    if (url.isEmpty()) {
        log(QStringLiteral("download file, but url is empty."));
        return {eFailure_BadAddress, url, file,
                QStringLiteral("no address on the server for %1").arg(file)};
    }
    if (!MVThemeMgr::init()->isServerAddress(url)) {
        log(QStringLiteral("download file, but url is empty."));
        return {eFailure_BadAddress, url, file,
                QStringLiteral("%1 leads to another server than url_themeRootDir, which has to "
                               "end with a slash")
                    .arg(url)};
    }
    if (file.isEmpty() || !MVThemeMgr::init()->isDownloadPath(file)) {
        log(QStringLiteral("download file path is empty."));
        return {eFailure_BadAddress, url, file,
                QStringLiteral("%1: no place below the download root (%2)").arg(url, file)};
    }
    return {};
}
