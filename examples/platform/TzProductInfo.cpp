// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "host/TzProductInfo.h"

#include "host/HostSettings.h"

TzProductInfo* TzProductInfo::instance()
{
    static TzProductInfo info;
    return &info;
}

QString TzProductInfo::extendParam(const QString& key, const QString& defaultValue) const
{
    return hostSettings().productParams.value(key, defaultValue);
}
