// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <memory>

/// Shared ownership of one of the host's objects: a copy retains it, the last one releases it.
template <class T>
using CBasePtr = std::shared_ptr<T>;
