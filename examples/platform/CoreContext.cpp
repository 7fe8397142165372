// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "host/CoreContext.h"

CoreContext::~CoreContext() = default;
