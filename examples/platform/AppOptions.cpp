// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "host/AppOptions.h"

#include "host/HostSettings.h"

#include <QDir>

AppOptions* AppOptions::instance()
{
    static AppOptions options;
    return &options;
}

QString AppOptions::appDataPath() const
{
    return hostSettings().appDataPath;
}

bool AppOptions::ensureDirExists(const QString& path) const
{
    return !path.isEmpty() && QDir().mkpath(path);
}

bool AppOptions::isPartnerEdition1() const
{
    return hostSettings().partnerEditions.contains(1);
}

bool AppOptions::isPartnerEdition2() const
{
    return hostSettings().partnerEditions.contains(2);
}

bool AppOptions::isPartnerEdition3() const
{
    return hostSettings().partnerEditions.contains(3);
}

bool AppOptions::isPartnerEdition4() const
{
    return hostSettings().partnerEditions.contains(4);
}

bool AppOptions::isPartnerEdition5() const
{
    return hostSettings().partnerEditions.contains(5);
}
