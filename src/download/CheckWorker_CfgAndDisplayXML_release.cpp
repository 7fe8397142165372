// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

// CheckWorker_CfgAndDisplayXML: checks by the server's release.

#include "catalogue/MVThemeMgr.h"
#include "catalogue/XmlGuard.h"
#include "download/CheckTransfer.h"
#include "download/CheckWorker_CfgAndDisplayXML.h"
#include "download/ReleaseCheck.h"
#include "host/ContentDigest.h"
#include "host/RegularFile.h"
#include "host/Utils.h"

#include <QFile>

/// Returns false if the check ends here.
bool CheckWorker_CfgAndDisplayXML::acceptRelease(ReleaseCheck& check)
{
    m_release.reset();
    const ReleaseCheck::End end = check.run();
    if (end == ReleaseCheck::End::Refused) {
        const SCatalogueCheckResult& result = check.result();
        note(result.m_eEnd, result.m_qsReason, result.m_eCause);
        return false;
    }
    m_release = check.release();
    return true;
}

/// A release whose catalogue is not the present one does not describe the files on disk.
void CheckWorker_CfgAndDisplayXML::keepRelease(ReleaseCheck& check)
{
    const bool isPresent =
        m_result.m_eEnd == eCatalogueCheck_Current || m_result.m_eEnd == eCatalogueCheck_Changed;
    if (!isPresent || check.store())
        return;
    note(eCatalogueCheck_NotStored, QStringLiteral("the server's release cannot be stored"),
         eFailure_LocalFile);
}

/// Fetches a file of the catalogue; if there is a release, the one that it lists. A version file
/// that is already in the download tree is not fetched again.
ETransferResult CheckWorker_CfgAndDisplayXML::fetchListed(CheckTransfer& transfer,
                                                          const QString& url, const QString& file,
                                                          STransferFailure& failure)
{
    if (!m_release) {
        const ETransferResult result = transfer.fetch(url, file, XmlGuard::maxBytes);
        failure = transfer.failure();
        return result;
    }
    const AcceptedRelease::Source source = AcceptedRelease::sourceOf(url, m_release);
    if (!source.published.isKnown()) {
        failure = {eFailure_Damaged, url, file,
                   QStringLiteral("release %1 does not list %2")
                       .arg(m_release->release().m_serial)
                       .arg(url)};
        return eTransfer_NotPublished;
    }
    QFile present(MVThemeMgr::init()->Path_resource_version_xml(MVThemeMgr::eLoadDir_Download));
    QByteArray content;
    if (RegularFile::open(present)
        && RegularFile::readAll(present, source.published.m_sizeBytes, content)
        && ContentDigest::ofBytes(content) == source.published.m_digest)
        return Utils::writeFile(file, content, &failure) ? eTransfer_Success : eTransfer_LocalFile;
    const ETransferResult result = transfer.fetchPublished(url, file, source, XmlGuard::maxBytes);
    failure = transfer.failure();
    return result;
}
