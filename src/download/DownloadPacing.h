// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "records/MvResourceExport.h"

#include <chrono>

class CancelToken;

/// The pace of item downloads: the time of one step of the simulated first phase, and a thread's
/// pause before each file and between two checks of a file that another thread fetches.
///
/// HostSettings::downloadStepMs decides, unless the program has set a pace of its own for the
/// process. Any thread.
class MVRESOURCE_EXPORT DownloadPacing
{
public:
    DownloadPacing() = delete;

    /// Returns the present length of a step; 0 means no pauses.
    static std::chrono::milliseconds step();
    /// Sets the pace from the next step on; 0 means no pauses.
    static void setStep(std::chrono::milliseconds step);

    /// Waits for one step on the calling thread, or until the token is cancelled.
    static void pause(const CancelToken& cancel);
    /// Waits between two checks of what another thread does: for one step, at least for 10 ms, or
    /// until the token is cancelled.
    static void waitForOther(const CancelToken& cancel);
};
