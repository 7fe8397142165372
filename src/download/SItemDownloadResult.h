// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "download/EMVThemeDownLoadError.h"
#include "host/STransferFailure.h"

#include <QMetaType>

/// Outcomes of an item download, for hosts that act on them.
enum EItemDownloadEnd : int {
    eItemDownload_Complete = 0,  ///< every file is in place
    eItemDownload_Failed = 1,    ///< at least one file could not be fetched
    eItemDownload_Cancelled = 2, ///< stopped before every file was in place
};

/// Result of one item download.
struct SItemDownloadResult
{
    /// The outcome.
    EItemDownloadEnd m_eEnd = eItemDownload_Complete;
    /// The code of MVThemeDownLoader::sigDownloadFinish().
    EMVThemeDownLoadError m_eError = eDownLoadError_None;
    /// The first failure; set only if m_eEnd is eItemDownload_Failed.
    STransferFailure m_failure;
};
Q_DECLARE_METATYPE(SItemDownloadResult)
