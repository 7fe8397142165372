// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QMetaType>

/// Outcomes of an item download.
enum EMVThemeDownLoadError : int {
    /// The theme's config file could not be fetched: network failure (CurWrapper::result() 3).
    eDownLoadError_Internet = 0,
    /// The theme's config file has no address, or no local path inside the download root.
    eDownLoadError_Path = 1,
    /// At least one of the item's files could not be fetched; the others are in place.
    eDownLoadError_Element = 2,
    /// The theme's config file could not be fetched for any other reason.
    eDownLoadError_Unknown = 3,
    /// The download was cancelled.
    eDownLoadError_Cancel = 4,
    /// All files are in place.
    eDownLoadError_None = 5,
};
Q_DECLARE_METATYPE(EMVThemeDownLoadError)
