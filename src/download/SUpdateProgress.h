// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QtGlobal>

/// Progress of a catalogue check or a preview run.
struct SUpdateProgress
{
    /// Number of files fetched, found present or failed; a file counts once per use.
    int m_nFilesDone = 0;
    int m_nFiles = 0; ///< in total; 0 while unknown
    /// Bytes received so far, including the current file's. Never decreases.
    qint64 m_nBytes = 0;
};
