#pragma once

/// What mvres ends with.
namespace ExitStatus {

constexpr int success = 0;
constexpr int failure = 1;
constexpr int usage = 2;
/// fetch: this plus the value of EMVThemeDownLoadError.
constexpr int download = 10;
/// check: what became of the catalogue, if it is not current.
constexpr int changed = 20;
constexpr int serverNewer = 21;
constexpr int serverOlder = 22;
constexpr int unreachable = 23;
constexpr int rejected = 24;
constexpr int cancelled = 25;

} // namespace ExitStatus
