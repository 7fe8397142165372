#pragma once

#include <QtGlobal>

/// Progress of a catalogue check or a preview run.
struct SUpdateProgress
{
    /// Files that have been fetched, found present or failed; a file counts once per use.
    int m_nFilesDone = 0;
    int m_nFiles = 0; ///< in all; 0 while that is not known
    /// Bytes that have come so far, those of the file on its way included. Never decreases.
    qint64 m_nBytes = 0;
};
