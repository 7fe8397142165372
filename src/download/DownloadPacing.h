#pragma once

#include "records/MvResourceExport.h"

#include <chrono>

class CancelToken;

/// The pace of item downloads: the time of one step of the simulated first phase, and a thread's
/// pause before each file and between two checks of a file that another thread fetches.
///
/// One value per process: 500 ms, unless a program without human viewers sets less. Any thread.
class MVRESOURCE_EXPORT DownloadPacing
{
public:
    DownloadPacing() = delete;

    static std::chrono::milliseconds step();
    /// Sets the pace from the next step on. At least 1 ms, so that waiting threads do not spin.
    static void setStep(std::chrono::milliseconds step);

    /// Waits for one step on the calling thread, or until the token is cancelled.
    static void pause(const CancelToken& cancel);
};
