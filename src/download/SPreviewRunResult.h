#pragma once

/// What a host learns of one run that fetches thumbnails and animated previews. A file counts
/// once per use.
struct SPreviewRunResult
{
    int m_nFetched = 0;
    int m_nPresent = 0; ///< were on disk already
    int m_nFailed = 0;
    /// False if the run was cancelled or no catalogue could be read.
    bool m_bWorkedThrough = false;
};
