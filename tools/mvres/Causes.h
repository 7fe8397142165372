// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "host/STransferFailure.h"

class QJsonObject;

/// Failures as mvres reports them to programs.
namespace Causes {

/// Returns cause, readable text, address, local file and details.
QJsonObject toJson(const STransferFailure& failure);

} // namespace Causes
