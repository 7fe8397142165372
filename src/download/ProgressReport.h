#pragma once

#include "download/SUpdateProgress.h"
#include "records/MvResourceExport.h"

#include <chrono>
#include <functional>

/// Counts what a worker of the background check does, and tells it at most every 50 ms; the
/// beginning and the last file are always told. The worker's thread only.
class MVRESOURCE_EXPORT ProgressReport
{
public:
    using Callback = std::function<void(const SUpdateProgress&)>;

    /// Sets the callback invoked on the worker's thread; an empty function turns it off.
    void setCallback(Callback callback) { m_callback = std::move(callback); }

    /// Starts to count from zero.
    void begin(int files);
    /// Notes the bytes that the file on its way has brought so far.
    void noteReceived(qint64 bytes);
    /// Notes that nothing more comes of the file on its way.
    void endTransfer();
    /// Counts files as done.
    void countFiles(int files);

private:
    void tell(bool now);

    Callback m_callback;
    SUpdateProgress m_progress;
    qint64 m_bytesBefore = 0; // of the files that came before the one on its way
    std::chrono::steady_clock::time_point m_toldLast;
};
