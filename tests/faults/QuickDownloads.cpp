// Preloaded into a program: its downloads do not pace themselves for people who watch.

#include "download/DownloadPacing.h"

#include "host/CancelToken.h"

namespace {

constexpr std::chrono::milliseconds shortest(1);

} // namespace

std::chrono::milliseconds DownloadPacing::step()
{
    return shortest;
}

void DownloadPacing::pause(const CancelToken& cancel)
{
    cancel.waitFor(shortest);
}
