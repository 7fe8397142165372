#include "download/DownloadPacing.h"

#include "host/CancelToken.h"

#include <algorithm>
#include <atomic>

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

void DownloadPacing::pause(const CancelToken& cancel)
{
    cancel.waitFor(step());
}
