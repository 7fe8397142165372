// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "host/STransferFailure.h"
#include "records/MvResourceExport.h"

#include <QtGlobal>
#include <QVector>

/// Ways in which ItemUpdate ends.
enum EItemUpdateEnd : int {
    eItemUpdate_Complete = 0,  ///< every file is the published one
    eItemUpdate_Failed = 1,    ///< some files could not be fetched or stored
    eItemUpdate_Cancelled = 2, ///< cancelled; nothing was replaced, what has arrived is kept
};

/// Outcome of an ItemUpdate. A value type.
struct MVRESOURCE_EXPORT SUpdateOutcome
{
    /// The outcome.
    EItemUpdateEnd m_eEnd = eItemUpdate_Complete;
    int m_nStored = 0;          ///< files that were stored or replaced
    qint64 m_nFetchedBytes = 0; ///< received from the server
    /// The first failures, at most maxFailures.
    QVector<STransferFailure> m_vecFailures;
    /// Maximum number of failures listed.
    static constexpr int maxFailures = 100;
};
