#include "download/DownloadPacing.h"

#include <algorithm>
#include <atomic>
#include <thread>

namespace {

using std::chrono::milliseconds;

std::atomic<milliseconds::rep> stepMs{500};

} // namespace

milliseconds DownloadPacing::step()
{
    return milliseconds(stepMs);
}

void DownloadPacing::setStep(milliseconds step)
{
    stepMs = std::max<milliseconds::rep>(step.count(), 1);
}

void DownloadPacing::pause()
{
    std::this_thread::sleep_for(step());
}
