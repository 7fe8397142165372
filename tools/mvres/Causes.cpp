// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "Causes.h"

#include <QJsonObject>

namespace Causes {

QJsonObject toJson(const STransferFailure& failure)
{
    return {
        {QStringLiteral("cause"), STransferFailure::causeName(failure.m_eCause)},
        {QStringLiteral("text"), failure.causeText()},
        {QStringLiteral("url"), failure.m_qsUrl},
        {QStringLiteral("file"), failure.m_qsFile},
        {QStringLiteral("details"), failure.m_qsDetails},
    };
}

} // namespace Causes
