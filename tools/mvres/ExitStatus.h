// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

/// Exit statuses of mvres.
namespace ExitStatus {

constexpr int success = 0;
constexpr int failure = 1;
constexpr int usage = 2;
/// fetch and updates: this plus the value of EMVThemeDownLoadError, if the cause is unknown; 14:
/// cancelled.
constexpr int download = 10;
/// check: the outcome for the catalogue, unless it is current.
constexpr int changed = 20;
constexpr int serverNewer = 21;
constexpr int serverOlder = 22;
constexpr int unreachable = 23;
constexpr int rejected = 24;
constexpr int cancelled = 25;
constexpr int notStored = 26;
/// check: the catalogue is valid, but previews are missing.
constexpr int previewsFailed = 27;
/// fetch and updates: this plus the value of EFailureCause.
constexpr int cause = 30;
/// verify: files are outdated, but none is damaged or missing.
constexpr int outdated = 50;
/// verify: files are damaged or missing.
constexpr int damaged = 51;
/// need: items are to be fetched.
constexpr int notReady = 52;
/// need: items are not in the catalogue.
constexpr int unknown = 53;

} // namespace ExitStatus
