#pragma once

#include "host/MvHostExport.h"

#include <QString>

/// Reads the named parameters of the product.
///
/// Reads hostSettings(); every operation may be called from every thread. The instance is alive
/// until the process is gone. ProductParam.h lists the keys in use.
class MVHOST_EXPORT TzProductInfo
{
public:
    static TzProductInfo* instance();

    /// The value configured for `key`, or `defaultValue` where there is none.
    QString extendParam(const QString& key, const QString& defaultValue) const;

private:
    TzProductInfo() = default;
};
