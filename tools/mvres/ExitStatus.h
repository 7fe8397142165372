#pragma once

/// Exit statuses of mvres.
namespace ExitStatus {

constexpr int success = 0;
constexpr int failure = 1;
constexpr int usage = 2;
/// fetch: this plus the value of EMVThemeDownLoadError, where no cause is known; 14: cancelled.
constexpr int download = 10;
/// check: what became of the catalogue, if it is not current.
constexpr int changed = 20;
constexpr int serverNewer = 21;
constexpr int serverOlder = 22;
constexpr int unreachable = 23;
constexpr int rejected = 24;
constexpr int cancelled = 25;
constexpr int notStored = 26;
/// check: the catalogue is in order, but previews are missing.
constexpr int previewsFailed = 27;
/// fetch: this plus the value of EFailureCause.
constexpr int cause = 30;

} // namespace ExitStatus
