#include "download/CheckWorker_CfgAndDisplayXML.h"

#include "catalogue/MVThemeMgr.h"
#include "catalogue/XmlGuard.h"
#include "download/CheckTransfer.h"
#include "host/AppOptions.h"
#include "host/LogL.h"
#include "host/Utils.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace {

constexpr char category[] = "CheckCfgWorker";
constexpr qint64 largestVersionFile = 64 * 1024;

constexpr int resultLocalFile = 2;
constexpr int resultNetwork = 3;
constexpr int resultCancelled = 5;
constexpr int resultTooLarge = 6;

/// A format version without its dots, as a number.
int numberOf(const QString& version)
{
    return QString(version).remove(QLatin1Char('.')).toInt();
}

void logFile(int level, const char* format, const QString& url, const QString& file)
{
    LogL(category, level, format, url.toUtf8().constData(), file.toUtf8().constData());
}

void logChecksums(int level, const char* format,
                  const CheckWorker_CfgAndDisplayXML::SVersion& version)
{
    LogL(category, level, format, version.m_qsVer_config.toUtf8().constData(),
         version.m_qsVer_Display.toUtf8().constData());
}

void logNumber(const char* format, const CheckWorker_CfgAndDisplayXML::SVersion& version)
{
    LogL("MVThemeMgr", 2, format, numberOf(version.m_qsVersion), version.bLoadXMLOK ? 1 : 0,
         version.m_hasVersion ? 1 : 0);
}

CheckWorker_CfgAndDisplayXML::SVersion noVersion()
{
    CheckWorker_CfgAndDisplayXML::SVersion version;
    version.m_hasVersion = false;
    return version;
}

} // namespace

CheckWorker_CfgAndDisplayXML::CheckWorker_CfgAndDisplayXML() = default;

CheckWorker_CfgAndDisplayXML::~CheckWorker_CfgAndDisplayXML() = default;

void CheckWorker_CfgAndDisplayXML::setResultCallback(ResultCallback callback)
{
    m_resultCallback = std::move(callback);
}

void CheckWorker_CfgAndDisplayXML::cancel()
{
    m_CurWrapper.cancel();
    m_bWillCancel = true;
}

void CheckWorker_CfgAndDisplayXML::onStartDownloadXML(const QString&)
{
    Utils::rmDir(getDownLoadTemp(), true);
    m_bWillCancel = false;
    m_result = SCatalogueCheckResult();

    CheckTransfer transfer(m_CurWrapper, m_bWillCancel);
    if (!fetchVersion(transfer)) {
        end();
        return;
    }
    if (!readVersions()) {
        m_result.m_bPreviewsFollow = false;
        report(); // and no end signal, which is what hosts are used to
        return;
    }
    bool needConfig = false;
    bool needDisplay = false;
    if (isSameFormat()) {
        checkNeedUpdate(needConfig, needDisplay);
        LogL(category, 2, "doWork download bNeedUpdate_cfg = %d", needConfig ? 1 : 0);
        LogL(category, 2, "doWork download bNeedUpdate_display = %d", needDisplay ? 1 : 0);
        if (needConfig || needDisplay)
            fetchCatalogue(transfer, needConfig, needDisplay);
    }
    end();
}

bool CheckWorker_CfgAndDisplayXML::fetchVersion(CheckTransfer& transfer)
{
    const QString url = getSerThemeXMLPath(EType_XML_resource_version_xml);
    const QString file = getDownLoad_XML_Temp(EType_XML_resource_version_xml, true);
    const int result = transfer.fetch(url, file, largestVersionFile);
    if (result != 0) {
        noteFailure(result, transfer.errorText(), true);
        logFile(2,
                "doWork download EType_XML_resource_version_xml is error!, strUrl = %s, "
                "strFile = %s",
                url, file);
        return false;
    }
    if (m_bWillCancel) {
        note(eCatalogueCheck_Cancelled, QString());
        logFile(2,
                "doWork download EType_XML_resource_version_xml, m_bWillCancel = true!, "
                "strUrl = %s, strFile = %s",
                url, file);
        return false;
    }
    logFile(2, "doWork download EType_XML_resource_version_xml is ok!, strUrl = %s, strFile = %s",
            url, file);
    logFile(2, "doWork download EType_XML_resource_version_xml, strUrl = %s, strFile = %s", url,
            file);
    return true;
}

bool CheckWorker_CfgAndDisplayXML::readVersions()
{
    m_sVer_Ser = noVersion();
    m_sVer_Download = noVersion();
    m_sVer_Local = noVersion();

    getVersionInfo(getDownLoad_XML_Temp(EType_XML_resource_version_xml, true), m_sVer_Ser);
    logChecksums(2, "m_sVer_Ser, m_qsVer_config = %s, m_qsVer_Display = %s", m_sVer_Ser);
    if (m_sVer_Ser.m_qsVer_config.isEmpty() || m_sVer_Ser.m_qsVer_Display.isEmpty()) {
        note(eCatalogueCheck_Rejected,
             m_sVer_Ser.bLoadXMLOK
                 ? QStringLiteral("the server's version file announces no checksums")
                 : QStringLiteral("the server's version file is malformed"));
        LogL(category, 2,
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

/// Only catalogues of the installed format version are fetched.
bool CheckWorker_CfgAndDisplayXML::isSameFormat()
{
    const int server = numberOf(m_sVer_Ser.m_qsVersion);
    const int installed = numberOf(m_sVer_Local.m_qsVersion);
    logNumber("nVer_ser [%d] ,bLoadXMLOK [%d], m_hasVersion [%d].", m_sVer_Ser);
    logNumber("nVer_Download [%d],bLoadXMLOK [%d], m_hasVersion [%d].", m_sVer_Download);
    logNumber("nVer_Local [%d],bLoadXMLOK [%d], m_hasVersion [%d].", m_sVer_Local);
    if (server > installed) {
        LogL(category, 2, "nVer_ser > nVer_Local, not download, sig_NeedUpdateApp!");
        note(eCatalogueCheck_ServerNewer, QString());
        emit sig_NeedUpdateApp();
        return false;
    }
    if (server < installed) {
        LogL(category, 2, "nVer_ser < nVer_Local, not download, not sig_NeedUpdateApp!");
        note(eCatalogueCheck_ServerOlder, QString());
        return false;
    }
    LogL(category, 2, "nVer_ser == nVer_Local, download, not sig_NeedUpdateApp!");
    return true;
}

void CheckWorker_CfgAndDisplayXML::checkNeedUpdate(bool& needConfig, bool& needDisplay)
{
    const auto isComplete = [](const SVersion& version) {
        return !version.m_qsVer_config.isEmpty() && !version.m_qsVer_Display.isEmpty();
    };
    const bool downloaded = isComplete(m_sVer_Download);
    const bool known = downloaded || isComplete(m_sVer_Local);
    const SVersion& own = downloaded ? m_sVer_Download : m_sVer_Local;
    if (!known || m_sVer_Ser.m_qsVer_config != own.m_qsVer_config)
        needConfig = true;
    if (!known || m_sVer_Ser.m_qsVer_Display != own.m_qsVer_Display)
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
    }
    LogL("MVThemeDownLoader_DisplayXML", 1, "hasError = %d", hasError ? 1 : 0);
    if (!hasError)
        copyToDownload(needConfig, needDisplay);
}

/// False if the check ends here.
bool CheckWorker_CfgAndDisplayXML::fetchFile(CheckTransfer& transfer, const CatalogueFile& file,
                                             bool& hasError)
{
    const QString url = getSerThemeXMLPath(file.type);
    const QString target = getDownLoad_XML_Temp(file.type, true);
    const int result = transfer.fetch(url, target, XmlGuard::longestDocument);
    if (result != 0) {
        hasError = true;
        noteFailure(result, transfer.errorText(), false);
        QFile::remove(target);
        emit sig_endDownloadXML(true);
        LogL("MVThemeDownLoader", 1,
             "parseData_xml  download template is error!, sType_XML_Info.eType_XML = %d, "
             "strUrl = %s, strFile = %s",
             static_cast<int>(file.type), url.toUtf8().constData(), target.toUtf8().constData());
        return true;
    }
    if (m_bWillCancel) {
        note(eCatalogueCheck_Cancelled, QString());
        logFile(1,
                "doWork download EType_XML_resource_version_xml, m_bWillCancel = true!, "
                "strUrl = %s, strFile = %s",
                url, target);
        return false;
    }
    LogL("MVThemeDownLoader", 1,
         "parseData_xml  download template is ok!, sType_XML_Info.eType_XML = %d, strUrl = %s, "
         "strFile = %s",
         static_cast<int>(file.type), url.toUtf8().constData(), target.toUtf8().constData());
    if (Utils::getMD5(target) != file.checksum) {
        hasError = true;
        note(eCatalogueCheck_Rejected,
             QStringLiteral("%1 does not have the checksum that the version file announces")
                 .arg(url));
    }
    return true;
}

void CheckWorker_CfgAndDisplayXML::copyToDownload(bool needConfig, bool needDisplay)
{
    MVThemeMgr* const manager = MVThemeMgr::init();
    const char* const displayCopied = "copyTemp2DownLoad path_Display = [%s] is exists, bRet = %d";
    const char* const configCopied = "copyTemp2DownLoad path_Config = [%s] is exists, bRet = %d";
    bool allCopied = true;
    if (needDisplay) {
        copyFile(
            getDownLoad_XML_Temp(EType_XML_resource_display_xml, true),
            manager->Path_resource_xml(MVThemeMgr::eLoadDir_Download, MVThemeMgr::eDirTag_Display),
            displayCopied, allCopied);
    }
    if (needConfig) {
        copyFile(
            getDownLoad_XML_Temp(EType_XML_resource_config_xml, true),
            manager->Path_resource_xml(MVThemeMgr::eLoadDir_Download, MVThemeMgr::eDirTag_Config),
            configCopied, allCopied);
    }
    copyFile(getDownLoad_XML_Temp(EType_XML_resource_version_xml, true),
             getDownLoad_XML_Temp(EType_XML_resource_version_xml, false), configCopied, allCopied);
    if (allCopied)
        note(eCatalogueCheck_Changed, QString());
}

/// After a copy that failed nothing more is replaced: a version file must not speak for catalogue
/// files that are not there, or no later check would fetch them.
void CheckWorker_CfgAndDisplayXML::copyFile(const QString& from, const QString& to,
                                            const char* format, bool& allCopied)
{
    const QFileInfo target(to);
    const QDir folder = target.absoluteDir();
    const bool copied = allCopied && MVThemeMgr::init()->isDownloadPath(to)
        && AppOptions::instance()->ensureDirExists(folder.path())
        && Utils::copyFile(from, folder, target.fileName());
    LogL("profileDownLoader", 1, format, from.toUtf8().constData(), copied ? 1 : 0);
    if (!copied)
        note(eCatalogueCheck_Rejected, QStringLiteral("%1 cannot be written").arg(to));
    allCopied = copied;
}

bool CheckWorker_CfgAndDisplayXML::isCancelled() const
{
    return m_bWillCancel || CheckTransfer::isInterrupted();
}

void CheckWorker_CfgAndDisplayXML::noteFailure(int result, const QString& reason, bool isVersion)
{
    if (result == resultCancelled || isCancelled())
        note(eCatalogueCheck_Cancelled, QString());
    else if (result == resultNetwork
             || (isVersion && result != resultLocalFile && result != resultTooLarge))
        note(eCatalogueCheck_Unreachable, reason);
    else
        note(eCatalogueCheck_Rejected, reason);
}

void CheckWorker_CfgAndDisplayXML::note(ECatalogueCheckEnd end, const QString& reason)
{
    if (m_result.m_eEnd == eCatalogueCheck_Current)
        m_result = {end, reason, true};
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
