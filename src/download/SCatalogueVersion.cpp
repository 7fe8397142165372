// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "download/SCatalogueVersion.h"

#include <algorithm>
#include <limits>

int SCatalogueVersion::number() const
{
    const QString digits = QString(m_qsVersion).remove(QLatin1Char('.'));
    bool isNumber = false;
    const int number = digits.toInt(&isNumber);
    const bool isTooLarge = !isNumber && digits.toDouble(&isNumber) > 0 && isNumber
        && std::all_of(digits.cbegin(), digits.cend(), [](QChar c) { return c.isDigit(); });
    return isTooLarge ? std::numeric_limits<int>::max() : number;
}

SCatalogueVersion SCatalogueVersion::none()
{
    SCatalogueVersion version;
    version.m_hasVersion = false;
    return version;
}
