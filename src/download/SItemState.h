// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "download/EFileState.h"
#include "records/MvResourceExport.h"

#include <QtGlobal>

class QDebug;

/// The state of an item with all that it uses. A value type.
struct MVRESOURCE_EXPORT SItemState
{
    /// Missing if the item cannot be used yet; otherwise damaged, outdated or unlisted if one of
    /// its files is, in this order; otherwise current.
    EFileState m_eState = eFile_Current;
    /// The files that an update fetches: missing, outdated and damaged ones. Those that a theme's
    /// missing definition names are not known yet.
    int m_nToFetch = 0;
    /// Their sizes, as far as the release names them.
    qint64 m_nBytesToFetch = 0;
    /// False if files are to be fetched whose sizes the release does not name, or of a theme whose
    /// definition is missing.
    bool m_bBytesKnown = true;
    /// The size of its files on disk, wherever they are.
    qint64 m_nBytesOnDisk = 0;
    /// The number of different files that must be fetched before the item can be used, as
    /// ItemFiles::countNeeded() counts them.
    int m_nNeeded = 0;
    /// The size of all its files, each counted once: as it is on disk, or as the release names it
    /// if it is missing.
    qint64 m_nBytes = 0;
};

/// Prints the state for log output and test failures.
MVRESOURCE_EXPORT QDebug operator<<(QDebug debug, const SItemState& state);
