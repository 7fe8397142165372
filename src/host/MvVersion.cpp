// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "host/MvVersion.h"

const char* mvVersion() noexcept
{
    return MVRESOURCE_VERSION_STRING;
}
