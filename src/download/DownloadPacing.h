#pragma once

#include "records/MvResourceExport.h"

#include <chrono>

class CancelToken;

/// The pace of item downloads: how long one step of the simulated first phase takes, and how long
/// a thread pauses before each file and between two looks at a file that another thread fetches.
///
/// One value per process, 500 ms unless a program that nobody watches asks for less. Any thread.
class MVRESOURCE_EXPORT DownloadPacing
{
public:
    DownloadPacing() = delete;

    static std::chrono::milliseconds step();
    /// Takes effect with the next step. At least 1 ms, so that waiting threads do not spin.
    static void setStep(std::chrono::milliseconds step);

    /// Sleeps for one step on the calling thread, or until the token is cancelled.
    static void pause(const CancelToken& cancel);
};
