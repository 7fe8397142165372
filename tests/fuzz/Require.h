// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

/// Ends the process, with `property` and `details` on standard error, unless the property holds;
/// the fuzzer then keeps the input. Describe the expectation: "a failure has a reason".
void require(bool holds, const char* property, const QString& details = QString());
