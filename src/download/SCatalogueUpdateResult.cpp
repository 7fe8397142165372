// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "download/SCatalogueUpdateResult.h"

QString SCatalogueUpdateResult::reason() const
{
    switch (m_eEnd) {
    case eCatalogueUpdate_Complete:
    case eCatalogueUpdate_Cancelled:
        break;
    case eCatalogueUpdate_PreviewsMissing:
        if (m_previews.m_eEnd == ePreviewRun_NoCatalogue)
            return m_previews.m_qsReason;
        return m_previews.m_vecFailures.isEmpty() ? QString()
                                                  : m_previews.m_vecFailures.first().m_qsDetails;
    case eCatalogueUpdate_Failed:
        if (m_check.m_eEnd == eCatalogueCheck_ServerNewer)
            return QStringLiteral("the server's catalogue needs a newer application");
        if (m_check.m_eEnd == eCatalogueCheck_ServerOlder)
            return QStringLiteral("the server's catalogue is older than the application");
        return m_check.m_qsReason;
    }
    return {};
}

EFailureCause SCatalogueUpdateResult::cause() const
{
    switch (m_eEnd) {
    case eCatalogueUpdate_Complete:
        break;
    case eCatalogueUpdate_Cancelled:
        return eFailure_Cancelled;
    case eCatalogueUpdate_PreviewsMissing:
        return m_previews.m_vecFailures.isEmpty() ? eFailure_LocalFile
                                                  : m_previews.m_vecFailures.first().m_eCause;
    case eCatalogueUpdate_Failed:
        return m_check.m_eCause;
    }
    return eFailure_None;
}
