// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <sys/types.h>

/// Permissions of every file that is created; the umask takes away what the user does not want.
constexpr mode_t newFileMode = 0666;
