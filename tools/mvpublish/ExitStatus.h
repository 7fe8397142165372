// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

/// Exit statuses of mvpublish.
namespace ExitStatus {

constexpr int success = 0;
/// There are findings; diff: the trees differ.
constexpr int findings = 1;
/// The work could not be done.
constexpr int failure = 2;

} // namespace ExitStatus
