// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

// CheckWorker_CfgAndDisplayXML: verifying the fetched files and storing them in the download tree.

#include "catalogue/MVThemeMgr.h"
#include "catalogue/XmlFile.h"
#include "catalogue/XmlGuard.h"
#include "download/CheckWorker_CfgAndDisplayXML.h"
#include "host/AppOptions.h"
#include "host/LogL.h"
#include "host/RegularFile.h"
#include "host/Utils.h"

#include <QCryptographicHash>
#include <QDomDocument>
#include <QFile>
#include <QFileInfo>

/// Returns whether a fetched catalogue file has the announced checksum and is readable: an
/// unreadable one must not replace the present catalogue.
bool CheckWorker_CfgAndDisplayXML::isPublished(const CatalogueFile& file, const QString& url,
                                               const QString& fetched)
{
    QDomDocument doc;
    if (Utils::getMD5(fetched) != file.checksum) {
        note(eCatalogueCheck_Rejected,
             QStringLiteral("%1 does not have the checksum that the version file announces")
                 .arg(url),
             eFailure_Damaged);
        return false;
    }
    if (!XmlFile::parse(fetched, doc)) {
        note(eCatalogueCheck_Rejected, QStringLiteral("%1 is not a catalogue: malformed").arg(url),
             eFailure_Damaged);
        return false;
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
            {EType_XML_resource_display_xml, true, m_sVer_Ser.m_qsVer_Display},
            manager->Path_resource_xml(MVThemeMgr::eLoadDir_Download, MVThemeMgr::eDirTag_Display),
            displayCopied, allCopied);
    }
    if (needConfig) {
        copyFile(
            {EType_XML_resource_config_xml, true, m_sVer_Ser.m_qsVer_config},
            manager->Path_resource_xml(MVThemeMgr::eLoadDir_Download, MVThemeMgr::eDirTag_Config),
            configCopied, allCopied);
    }
    copyFile({EType_XML_resource_version_xml, true, m_qsVersionSum},
             getDownLoad_XML_Temp(EType_XML_resource_version_xml, false), configCopied, allCopied);
    if (allCopied)
        note(eCatalogueCheck_Changed);
}

/// After a failed copy no further file is replaced or tried: a version file must not announce
/// catalogue files that are missing, or no later check would fetch them.
void CheckWorker_CfgAndDisplayXML::copyFile(const CatalogueFile& file, const QString& to,
                                            const char* format, bool& allCopied)
{
    if (!allCopied)
        return;
    const QString from = getDownLoad_XML_Temp(file.type, true);
    allCopied = storeFile(from, file.checksum, to);
    LogL("profileDownLoader", 1, format, from.toUtf8().constData(), allCopied ? 1 : 0);
}

/// Replaces a file of the download tree by the verified content, even if the temporary file has
/// changed since.
bool CheckWorker_CfgAndDisplayXML::storeFile(const QString& from, const QString& checksum,
                                             const QString& to)
{
    QFile source(from);
    QByteArray content;
    if (!RegularFile::open(source) || !RegularFile::readAll(source, XmlGuard::maxBytes, content)
        || QCryptographicHash::hash(content, QCryptographicHash::Md5).toHex()
            != checksum.toLatin1()) {
        note(eCatalogueCheck_NotStored,
             QStringLiteral("%1 has changed since it was downloaded").arg(from),
             eFailure_LocalFile);
        return false;
    }
    if (!MVThemeMgr::init()->isDownloadPath(to)) {
        note(eCatalogueCheck_NotStored, QStringLiteral("%1 is outside the download root").arg(to),
             eFailure_BadAddress);
        return false;
    }
    STransferFailure failure;
    AppOptions::instance()->ensureDirExists(QFileInfo(to).path());
    if (Utils::writeFile(to, content, &failure))
        return true;
    note(eCatalogueCheck_NotStored, failure.m_qsDetails, failure.m_eCause);
    return false;
}
