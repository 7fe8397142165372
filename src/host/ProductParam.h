// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "host/TzProductInfo.h"

#include <QLatin1String>
#include <QString>

/// The product parameters that the system reads, see TzProductInfo, and functions that read them.
/// Any thread.
namespace ProductParam {

/// Prefix of every address on the resource server, with a trailing slash. File names are appended
/// to it, see MVThemeMgr::downLoadUrl().
constexpr QLatin1String serverRoot("url_themeRootDir", 16);
/// A non-zero integer turns themes on.
constexpr QLatin1String hasThemes("hasMV", 5);
/// A non-zero integer turns background materials on.
constexpr QLatin1String hasBackgrounds("hasSplit", 8);
/// "1" shows only the first 12 filters.
constexpr QLatin1String fewFilters("disableDownloadFiter", 20);
/// The target of "More>>"; an empty value hides that cell.
constexpr QLatin1String moreAddress("url_slidershow", 14);

/// Returns the value of a parameter; empty if there is none.
inline QString text(QLatin1String key)
{
    return TzProductInfo::instance()->extendParam(key, QString());
}

/// Returns whether the value is an integer other than zero.
inline bool isOn(QLatin1String key)
{
    return text(key).toInt() != 0;
}

} // namespace ProductParam
