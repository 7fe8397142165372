// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "host/MvHostExport.h"

#include <QString>

/// Reads the named parameters of the product.
///
/// Reads hostSettings(); all functions may be called from any thread. The instance exists until the
/// process ends. ProductParam.h lists the keys in use.
class MVHOST_EXPORT TzProductInfo
{
public:
    /// Returns the object of this process.
    static TzProductInfo* instance();

    /// Returns the value configured for `key`, or `defaultValue` if there is none.
    QString extendParam(const QString& key, const QString& defaultValue) const;

private:
    TzProductInfo() = default;
};
