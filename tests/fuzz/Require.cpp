// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "Require.h"

#include <cstdio>
#include <cstdlib>

void require(bool holds, const char* property, const QString& details)
{
    if (holds)
        return;
    std::fprintf(stderr, "property does not hold: %s\n", property);
    if (!details.isEmpty())
        std::fprintf(stderr, "%s\n", details.toUtf8().replace('\0', "\\0").constData());
    std::abort();
}
