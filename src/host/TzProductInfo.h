#pragma once

#include "host/MvHostExport.h"

#include <QString>

/// Reads the named parameters of the product.
///
/// Reads hostSettings(); every operation may be called from every thread. The instance is alive
/// until the process is gone. Keys in use:
///  - "url_themeRootDir": prefix of every address on the resource server; files are named by
///    appending to it, see MVThemeMgr::downLoadUrl.
///  - "hasMV", "hasSplit": a non-zero integer turns themes or background materials on.
///  - "disableDownloadFiter": "1" shows the first 12 filters only.
///  - "url_slidershow": where "More>>" leads; empty hides that cell.
class MVHOST_EXPORT TzProductInfo
{
public:
    static TzProductInfo* instance();

    /// The value configured for `key`, or `defaultValue` where there is none.
    QString extendParam(const QString& key, const QString& defaultValue) const;

private:
    TzProductInfo() = default;
};
