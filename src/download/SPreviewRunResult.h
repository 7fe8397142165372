// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "host/STransferFailure.h"

#include <QString>
#include <QVector>

/// Outcomes of a run that fetches thumbnails and animated previews.
enum EPreviewRunEnd : int {
    /// The whole list was processed; individual files may have failed.
    ePreviewRun_Complete = 0,
    /// No catalogue could be read, so there was no list.
    ePreviewRun_NoCatalogue = 1,
    /// The run was cancelled before every file was present.
    ePreviewRun_Cancelled = 2,
};

/// Result of one preview run. A file counts once per use.
struct SPreviewRunResult
{
    /// Maximum number of failures listed; the others are only counted.
    static constexpr int maxFailures = 100;

    /// The outcome.
    EPreviewRunEnd m_eEnd = ePreviewRun_Complete;
    /// Names the catalogue files that could not be read, for display; empty for other outcomes.
    QString m_qsReason;
    int m_nFetched = 0; ///< fetched by the run
    int m_nPresent = 0; ///< were already on disk
    int m_nFailed = 0;  ///< could not be fetched
    /// The first failures, in the order in which they occurred.
    QVector<STransferFailure> m_vecFailures;
    /// The value of the run's end signal: also true for a run cancelled when nothing was left to
    /// begin.
    bool m_bWorkedThrough = false;
};
