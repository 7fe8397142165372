// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

// Preloaded into a program to remove the pauses that pace downloads for human viewers.

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
