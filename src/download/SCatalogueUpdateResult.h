// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "download/SCatalogueCheckResult.h"
#include "download/SPreviewRunResult.h"
#include "records/MvResourceExport.h"

/// Outcomes of an update, including the previews after the check.
enum ECatalogueUpdateEnd : int {
    /// The catalogue and all previews on disk match the server's.
    eCatalogueUpdate_Complete = 0,
    /// The catalogue on disk matches the server's; some previews could not be fetched.
    eCatalogueUpdate_PreviewsMissing = 1,
    /// The catalogue could not be brought up to date. Previews may have arrived nevertheless.
    eCatalogueUpdate_Failed = 2,
    eCatalogueUpdate_Cancelled = 3,
};

/// The single outcome of CatalogueUpdate.
struct MVRESOURCE_EXPORT SCatalogueUpdateResult
{
    /// The outcome.
    ECatalogueUpdateEnd m_eEnd = eCatalogueUpdate_Complete;
    /// New files are in the download tree: the host reloads the catalogue once no download runs.
    /// May be true whatever the end.
    bool m_bContentArrived = false;
    /// Result of the check.
    SCatalogueCheckResult m_check;
    /// Result of the preview runs, including files fetched during the check.
    SPreviewRunResult m_previews;

    /// Returns an English line saying why the update is neither complete nor cancelled; empty
    /// otherwise.
    QString reason() const;
    /// Returns the reason as a cause; eFailure_None for a complete update, and if the server's
    /// catalogue has another format version.
    EFailureCause cause() const;
};
