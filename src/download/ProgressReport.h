// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "download/SUpdateProgress.h"
#include "records/MvResourceExport.h"

#include <chrono>
#include <functional>

/// Counts the work of the background check and reports it at most every 50 ms, but always at the
/// beginning and after the last file. The worker's thread only.
class MVRESOURCE_EXPORT ProgressReport
{
public:
    /// Takes the numbers of the work.
    using Callback = std::function<void(const SUpdateProgress&)>;

    /// Sets the callback invoked on the worker's thread; an empty function removes it.
    void setCallback(Callback callback) { m_callback = std::move(callback); }

    /// Starts counting from zero.
    void begin(int files);
    /// Records the bytes received so far for the current file.
    void noteReceived(qint64 bytes);
    /// Records further bytes, for files that arrive side by side.
    void addReceived(qint64 bytes);
    /// Records that the current file's transfer has ended.
    void endTransfer();
    /// Counts files as done.
    void countFiles(int files);

private:
    void tell(bool now);

    Callback m_callback;
    SUpdateProgress m_progress;
    qint64 m_bytesBefore = 0; // of the files before the current one
    std::chrono::steady_clock::time_point m_toldLast;
};
