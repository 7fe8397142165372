// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "download/CheckWorker_CfgAndDisplayXML.h"

#include "catalogue/MVThemeMgr.h"
#include "catalogue/XmlGuard.h"
#include "download/AnswerCache.h"
#include "download/CheckTransfer.h"
#include "download/LogCategories.h"
#include "download/ReleaseCheck.h"
#include "download/VersionFile.h"
#include "host/AppOptions.h"
#include "host/FileLock.h"
#include "host/HostSettings.h"
#include "host/LogL.h"
#include "host/RegularFile.h"
#include "host/Utils.h"

#include <QFile>
#include <QFileInfo>

namespace {

constexpr int filesOfACheck = 3; // version file and two catalogue files

void logFile(int level, const char* format, const QString& url, const QString& file)
{
    LogL(LogCategories::checkOfCatalogue, level, format, url.toUtf8().constData(),
         file.toUtf8().constData());
}

void logChecksums(int level, const char* format, const SCatalogueVersion& version)
{
    LogL(LogCategories::checkOfCatalogue, level, format,
         version.m_qsVer_config.toUtf8().constData(), version.m_qsVer_Display.toUtf8().constData());
}

void logNumber(const char* format, const SCatalogueVersion& version)
{
    LogL("MVThemeMgr", 2, format, version.number(), version.bLoadXMLOK ? 1 : 0,
         version.m_hasVersion ? 1 : 0);
}

} // namespace

CheckWorker_CfgAndDisplayXML::CheckWorker_CfgAndDisplayXML(CancelToken cancel)
    : m_bWillCancel(std::move(cancel))
{
}

CheckWorker_CfgAndDisplayXML::~CheckWorker_CfgAndDisplayXML() = default;

void CheckWorker_CfgAndDisplayXML::setResultCallback(ResultCallback callback)
{
    m_resultCallback = std::move(callback);
}

void CheckWorker_CfgAndDisplayXML::setProgressCallback(ProgressReport::Callback callback)
{
    m_progress.setCallback(std::move(callback));
}

void CheckWorker_CfgAndDisplayXML::cancel()
{
    m_bWillCancel.cancel(); // first, so that no transfer begins after the one that ends
    m_CurWrapper.cancel();
}

void CheckWorker_CfgAndDisplayXML::onStartDownloadXML(const QString&)
{
    m_result = SCatalogueCheckResult();
    FileLock lock(lockPath());
    if (lockFolder(lock))
        Utils::rmDir(getDownLoadTemp(), true);

    CheckTransfer transfer(m_CurWrapper, m_progress, m_bWillCancel);
    m_progress.begin(filesOfACheck);
    ReleaseCheck release(transfer, getDownLoadTemp(), m_bWillCancel);
    if (!acceptRelease(release) || !fetchVersion(transfer)) {
        end();
        return;
    }
    m_progress.countFiles(1);
    if (!readVersions()) {
        m_result.m_bPreviewsFollow = false;
        report(); // no end signal, as hosts expect
        return;
    }
    bool needConfig = false;
    bool needDisplay = false;
    if (isSameFormat()) {
        checkNeedUpdate(needConfig, needDisplay);
        LogL(LogCategories::checkOfCatalogue, 2, "doWork download bNeedUpdate_cfg = %d",
             needConfig ? 1 : 0);
        LogL(LogCategories::checkOfCatalogue, 2, "doWork download bNeedUpdate_display = %d",
             needDisplay ? 1 : 0);
        if (needConfig || needDisplay)
            fetchCatalogue(transfer, needConfig, needDisplay);
    }
    rememberVersion();
    keepRelease(release);
    end();
}

QString CheckWorker_CfgAndDisplayXML::lockPath()
{
    QString folder = getDownLoadTemp();
    folder.chop(1);
    return folder + QStringLiteral(".lock");
}

/// Waits until no other check uses the temporary folder. Returns false if this one was cancelled
/// meanwhile. If no lock can be created, the folder is not writable either, and the transfer
/// reports that.
bool CheckWorker_CfgAndDisplayXML::lockFolder(FileLock& lock)
{
    AppOptions::instance()->ensureDirExists(QFileInfo(lockPath()).path());
    return lock.lock(m_bWillCancel) != FileLock::Result::Cancelled;
}

bool CheckWorker_CfgAndDisplayXML::fetchVersion(CheckTransfer& transfer)
{
    const QString url = getSerThemeXMLPath(EType_XML_resource_version_xml);
    const QString file = getDownLoad_XML_Temp(EType_XML_resource_version_xml, true);
    if (stopIfCancelled(2, url, file))
        return false;
    transfer.setTimeLimit(std::chrono::milliseconds(hostSettings().versionTimeoutMs));
    STransferFailure failure;
    const ETransferResult result = m_release ? fetchListed(transfer, url, file, failure)
                                             : fetchVersionFile(transfer, url, file, failure);
    transfer.setTimeLimit(std::chrono::milliseconds::zero());
    if (result != eTransfer_Success) {
        noteFailure(result, failure, true);
        logFile(2,
                "doWork download EType_XML_resource_version_xml is error!, strUrl = %s, "
                "strFile = %s",
                url, file);
        return false;
    }
    if (stopIfCancelled(2, url, file))
        return false;
    logFile(2, "doWork download EType_XML_resource_version_xml is ok!, strUrl = %s, strFile = %s",
            url, file);
    logFile(2, "doWork download EType_XML_resource_version_xml, strUrl = %s, strFile = %s", url,
            file);
    return true;
}

ETransferResult CheckWorker_CfgAndDisplayXML::fetchVersionFile(CheckTransfer& transfer,
                                                               const QString& url,
                                                               const QString& file,
                                                               STransferFailure& failure)
{
    const bool mayAsk = hostSettings().conditionalRequests;
    const AnswerCache::Entry known =
        mayAsk ? AnswerCache::ofVersion().read(url) : AnswerCache::Entry();
    const ETransferResult result =
        transfer.fetchIfChanged(url, file, VersionFile::maxBytes, known.validators);
    failure = transfer.failure();
    if (result != eTransfer_Success)
        return result;
    if (transfer.isNotModified() && !Utils::writeFile(file, known.content, &failure))
        return eTransfer_LocalFile;
    if (mayAsk && !transfer.isNotModified())
        m_versionValidators = transfer.validators();
    return result;
}

bool CheckWorker_CfgAndDisplayXML::readVersions()
{
    m_sVer_Ser = SVersion::none();
    m_sVer_Download = SVersion::none();
    m_sVer_Local = SVersion::none();

    const QString fetched = getDownLoad_XML_Temp(EType_XML_resource_version_xml, true);
    m_qsVersionSum = Utils::getMD5(fetched);
    getVersionInfo(fetched, m_sVer_Ser);
    logChecksums(2, "m_sVer_Ser, m_qsVer_config = %s, m_qsVer_Display = %s", m_sVer_Ser);
    if (!m_sVer_Ser.isComplete()) {
        note(eCatalogueCheck_Rejected,
             m_sVer_Ser.bLoadXMLOK
                 ? QStringLiteral("the server's version file announces no checksums")
                 : QStringLiteral("the server's version file is malformed"),
             eFailure_Damaged);
        LogL(LogCategories::checkOfCatalogue, 2,
             "m_sVer_Ser.m_qsVer_config.isEmpty() || m_sVer_Ser.m_qsVer_Display.isEmpty(), "
             "will return!");
        return false;
    }
    MVThemeMgr* const manager = MVThemeMgr::init();
    getVersionInfo(manager->Path_resource_version_xml(MVThemeMgr::eLoadDir_Download),
                   m_sVer_Download);
    logChecksums(2, "m_sVer_Download, m_qsVer_config = %s, m_qsVer_Display = %s", m_sVer_Download);
    getVersionInfo(manager->Path_resource_version_xml(MVThemeMgr::eLoadDir_Local), m_sVer_Local);
    logChecksums(1, "m_sVer_Local, m_qsVer_config = %s, m_qsVer_Display = %s", m_sVer_Local);
    return true;
}

/// Keeps a version file that the server has sent for the next check's question.
void CheckWorker_CfgAndDisplayXML::rememberVersion()
{
    QFile file(getDownLoad_XML_Temp(EType_XML_resource_version_xml, true));
    QByteArray content;
    if (!m_versionValidators.areReliable() || !RegularFile::open(file)
        || !RegularFile::readAll(file, VersionFile::maxBytes, content))
        return;
    AnswerCache::ofVersion().store(getSerThemeXMLPath(EType_XML_resource_version_xml),
                                   {m_versionValidators, content});
}

/// Returns whether the server has the installed format version: only such catalogues are fetched.
bool CheckWorker_CfgAndDisplayXML::isSameFormat()
{
    const int server = m_sVer_Ser.number();
    const int installed = m_sVer_Local.number();
    logNumber("nVer_ser [%d] ,bLoadXMLOK [%d], m_hasVersion [%d].", m_sVer_Ser);
    logNumber("nVer_Download [%d],bLoadXMLOK [%d], m_hasVersion [%d].", m_sVer_Download);
    logNumber("nVer_Local [%d],bLoadXMLOK [%d], m_hasVersion [%d].", m_sVer_Local);
    if (server > installed) {
        LogL(LogCategories::checkOfCatalogue, 2,
             "nVer_ser > nVer_Local, not download, sig_NeedUpdateApp!");
        note(eCatalogueCheck_ServerNewer);
        emit sig_NeedUpdateApp();
        return false;
    }
    if (server < installed) {
        LogL(LogCategories::checkOfCatalogue, 2,
             "nVer_ser < nVer_Local, not download, not sig_NeedUpdateApp!");
        note(eCatalogueCheck_ServerOlder);
        return false;
    }
    LogL(LogCategories::checkOfCatalogue, 2,
         "nVer_ser == nVer_Local, download, not sig_NeedUpdateApp!");
    return true;
}

void CheckWorker_CfgAndDisplayXML::checkNeedUpdate(bool& needConfig, bool& needDisplay)
{
    const bool downloaded = m_sVer_Download.isComplete();
    const bool known = downloaded || m_sVer_Local.isComplete();
    const SVersion& own = downloaded ? m_sVer_Download : m_sVer_Local;
    // The files that clients read count, whatever the version files say: they may be damaged or
    // missing, or left by a check that was killed between two files.
    const auto isOther = [downloaded](MVThemeMgr::EDirTag tag, const QString& sum) {
        MVThemeMgr* const manager = MVThemeMgr::init();
        const QString file = manager->Path_resource_xml(MVThemeMgr::eLoadDir_Download, tag);
        if (QFileInfo::exists(file))
            return Utils::getMD5(file) != sum;
        return downloaded
            && Utils::getMD5(manager->Path_resource_xml(MVThemeMgr::eLoadDir_Local, tag)) != sum;
    };
    if (!known || m_sVer_Ser.m_qsVer_config != own.m_qsVer_config
        || isOther(MVThemeMgr::eDirTag_Config, m_sVer_Ser.m_qsVer_config))
        needConfig = true;
    if (!known || m_sVer_Ser.m_qsVer_Display != own.m_qsVer_Display
        || isOther(MVThemeMgr::eDirTag_Display, m_sVer_Ser.m_qsVer_Display))
        needDisplay = true;
}

void CheckWorker_CfgAndDisplayXML::fetchCatalogue(CheckTransfer& transfer, bool needConfig,
                                                  bool needDisplay)
{
    const CatalogueFile files[] = {
        {EType_XML_resource_display_xml, needDisplay, m_sVer_Ser.m_qsVer_Display},
        {EType_XML_resource_config_xml, needConfig, m_sVer_Ser.m_qsVer_config},
    };
    bool hasError = false;
    for (const CatalogueFile& file : files) {
        if (file.needed && !fetchFile(transfer, file, hasError))
            return;
        m_progress.countFiles(1);
    }
    LogL("MVThemeDownLoader_DisplayXML", 1, "hasError = %d", hasError ? 1 : 0);
    if (!hasError)
        copyToDownload(needConfig, needDisplay);
}

/// Returns false if the check ends here.
bool CheckWorker_CfgAndDisplayXML::fetchFile(CheckTransfer& transfer, const CatalogueFile& file,
                                             bool& hasError)
{
    const QString url = getSerThemeXMLPath(file.type);
    const QString target = getDownLoad_XML_Temp(file.type, true);
    if (stopIfCancelled(1, url, target))
        return false;
    STransferFailure failure;
    const ETransferResult result = fetchListed(transfer, url, target, failure);
    if (result != eTransfer_Success) {
        hasError = true;
        noteFailure(result, failure, false);
        QFile::remove(target);
        emit sig_endDownloadXML(true);
        LogL(LogCategories::coordinator, 1,
             "parseData_xml  download template is error!, sType_XML_Info.eType_XML = %d, "
             "strUrl = %s, strFile = %s",
             static_cast<int>(file.type), url.toUtf8().constData(), target.toUtf8().constData());
        return true;
    }
    if (stopIfCancelled(1, url, target))
        return false;
    LogL(LogCategories::coordinator, 1,
         "parseData_xml  download template is ok!, sType_XML_Info.eType_XML = %d, strUrl = %s, "
         "strFile = %s",
         static_cast<int>(file.type), url.toUtf8().constData(), target.toUtf8().constData());
    if (!isPublished(file, url, target))
        hasError = true;
    return true;
}

/// Returns true, and logs a line, if the check was cancelled and therefore ends at this file.
bool CheckWorker_CfgAndDisplayXML::stopIfCancelled(int level, const QString& url,
                                                   const QString& file)
{
    if (!m_bWillCancel.isCancelled())
        return false;
    note(eCatalogueCheck_Cancelled, QString(), eFailure_Cancelled);
    logFile(level,
            "doWork download EType_XML_resource_version_xml, m_bWillCancel = true!, "
            "strUrl = %s, strFile = %s",
            url, file);
    return true;
}

void CheckWorker_CfgAndDisplayXML::noteFailure(ETransferResult result,
                                               const STransferFailure& failure, bool isVersion)
{
    const bool isOther = m_release && result == eTransfer_NotPublished;
    const bool isUnreachable =
        result == eTransfer_Network || (isVersion && !isOther && result != eTransfer_TooLarge);
    if (result == eTransfer_Cancelled)
        note(eCatalogueCheck_Cancelled, QString(), eFailure_Cancelled);
    else if (result == eTransfer_LocalFile)
        note(eCatalogueCheck_NotStored, failure.m_qsDetails, failure.m_eCause);
    else
        note(isUnreachable ? eCatalogueCheck_Unreachable : eCatalogueCheck_Rejected,
             failure.m_qsDetails, failure.m_eCause);
}

void CheckWorker_CfgAndDisplayXML::note(ECatalogueCheckEnd end, const QString& reason,
                                        EFailureCause cause)
{
    if (m_result.m_eEnd == eCatalogueCheck_Current)
        m_result = {end, reason, true, cause};
}

void CheckWorker_CfgAndDisplayXML::report()
{
    if (m_resultCallback)
        m_resultCallback(m_result);
}

void CheckWorker_CfgAndDisplayXML::end()
{
    report();
    emit sig_endDownloadXML(true);
}
