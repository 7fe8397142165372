// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "host/CancelToken.h"

#include <functional>

/// Runs long work that blocks.
namespace Background {

/// Runs `work` on a thread of its own and returns when it has ended. An interrupt cancels the
/// token; the main thread waits in an event loop meanwhile.
void run(const CancelToken& cancel, const std::function<void()>& work);

} // namespace Background
