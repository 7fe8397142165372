// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

/// The categories under which checks, downloads and updates write to the log with LogL().
namespace LogCategories {

inline constexpr char checkOfCatalogue[] = "CheckCfgWorker";
inline constexpr char checkOfPreviews[] = "CheckWorker_ThumbAndGif";
inline constexpr char coordinator[] = "MVThemeDownLoader";
inline constexpr char itemUpdate[] = "ItemUpdate";

} // namespace LogCategories
