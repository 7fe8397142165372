// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "download/DownloadPacing.h"

#include "host/CancelToken.h"
#include "host/HostSettings.h"

#include <algorithm>
#include <atomic>

using std::chrono::milliseconds;

namespace {

constexpr milliseconds::rep asSettings = -1;

std::atomic<milliseconds::rep> ownStepMs{asSettings};

} // namespace

milliseconds DownloadPacing::step()
{
    const milliseconds::rep own = ownStepMs;
    return milliseconds(own == asSettings ? hostSettings().downloadStepMs : own);
}

void DownloadPacing::setStep(milliseconds step)
{
    ownStepMs = std::max(step, milliseconds(0)).count();
}

void DownloadPacing::pause(const CancelToken& cancel)
{
    cancel.waitFor(step());
}

void DownloadPacing::waitForOther(const CancelToken& cancel)
{
    constexpr milliseconds minPause(10);
    cancel.waitFor(std::max(step(), minPause));
}
