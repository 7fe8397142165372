#pragma once

#include "download/SCatalogueCheckResult.h"
#include "download/SPreviewRunResult.h"
#include "records/MvResourceExport.h"

/// Outcomes of an update, the previews behind the check included.
enum ECatalogueUpdateEnd : int {
    /// The catalogue on disk is the server's, and so are all previews.
    eCatalogueUpdate_Complete = 0,
    /// The catalogue on disk is the server's; previews could not be fetched.
    eCatalogueUpdate_PreviewsMissing = 1,
    /// The catalogue could not be brought up to date. Previews may have come all the same.
    eCatalogueUpdate_Failed = 2,
    eCatalogueUpdate_Cancelled = 3,
};

/// The one outcome of CatalogueUpdate.
struct MVRESOURCE_EXPORT SCatalogueUpdateResult
{
    ECatalogueUpdateEnd m_eEnd = eCatalogueUpdate_Complete;
    /// New files are in the download tree: the host reads the catalogue again, once no download
    /// runs. May be true whatever the end.
    bool m_bContentArrived = false;
    SCatalogueCheckResult m_check;
    /// Result of the preview runs; files fetched beside the check are included.
    SPreviewRunResult m_previews;

    /// Returns why the update is neither complete nor cancelled, in one English line; else empty.
    QString reason() const;
    /// Returns the reason as a cause; eFailure_None for a complete update, and where the server's
    /// catalogue has another format version.
    EFailureCause cause() const;
};
