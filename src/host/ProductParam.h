#pragma once

#include "host/TzProductInfo.h"

#include <QLatin1String>
#include <QString>

/// The product parameters that the system reads, see TzProductInfo, and how their values are read.
/// Every thread.
namespace ProductParam {

/// Prefix of every address on the resource server; it ends with a slash. Files are named by
/// appending to it, see MVThemeMgr::downLoadUrl().
constexpr QLatin1String serverRoot("url_themeRootDir", 16);
/// A non-zero integer turns themes on.
constexpr QLatin1String hasThemes("hasMV", 5);
/// A non-zero integer turns background materials on.
constexpr QLatin1String hasBackgrounds("hasSplit", 8);
/// "1" shows the first 12 filters only.
constexpr QLatin1String fewFilters("disableDownloadFiter", 20);
/// Where "More>>" leads; an empty value hides that cell.
constexpr QLatin1String moreAddress("url_slidershow", 14);

/// Returns the value of a parameter; empty where there is none.
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
