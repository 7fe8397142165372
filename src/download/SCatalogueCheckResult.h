// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "host/STransferFailure.h"

#include <QString>

/// Outcomes of a catalogue check.
enum ECatalogueCheckEnd : int {
    /// New catalogue files are in the download tree; the host loads the catalogue again once no
    /// download or check runs.
    eCatalogueCheck_Changed = 0,
    /// The files on disk are those of the server.
    eCatalogueCheck_Current = 1,
    /// The server's catalogue has a higher format version: the application must be updated.
    eCatalogueCheck_ServerNewer = 2,
    /// The server's catalogue has a lower format version.
    eCatalogueCheck_ServerOlder = 3,
    /// The server, or its version file, could not be reached.
    eCatalogueCheck_Unreachable = 4,
    /// The server's files are incomplete or wrong.
    eCatalogueCheck_Rejected = 5,
    /// The check was cancelled.
    eCatalogueCheck_Cancelled = 6,
    /// The server's files could not be stored on this computer.
    eCatalogueCheck_NotStored = 7,
};

/// Result of one catalogue check.
struct SCatalogueCheckResult
{
    /// The outcome.
    ECatalogueCheckEnd m_eEnd = eCatalogueCheck_Current;
    /// Readable details, in English, if the server was unreachable or the catalogue was rejected or
    /// not stored; otherwise empty.
    QString m_qsReason;
    /// True if the coordinator starts a preview run after the check. It does, unless the server's
    /// version file announces no checksums: such a check sends no end signal.
    bool m_bPreviewsFollow = true;
    /// The reason as a cause for programs; eFailure_None if there is none.
    EFailureCause m_eCause = eFailure_None;
};
