// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "server/OpenFiles.h"

#include <algorithm>
#include <limits>

#include <sys/resource.h>

namespace OpenFiles {

int limit()
{
    rlimit files = {};
    ::getrlimit(RLIMIT_NOFILE, &files);
    return static_cast<int>(std::min<rlim_t>(files.rlim_cur, std::numeric_limits<int>::max()));
}

void raiseLimit(int wanted)
{
    rlimit files = {};
    if (wanted <= limit() || ::getrlimit(RLIMIT_NOFILE, &files) != 0)
        return;
    files.rlim_cur = std::min(static_cast<rlim_t>(wanted), files.rlim_max);
    ::setrlimit(RLIMIT_NOFILE, &files);
}

} // namespace OpenFiles
