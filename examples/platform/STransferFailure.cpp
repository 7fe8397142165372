// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "host/STransferFailure.h"

/// The phrases of a product with one language.
QString STransferFailure::causeText(EFailureCause cause)
{
    switch (cause) {
    case eFailure_None:
        break;
    case eFailure_DiskFull:
        return QStringLiteral("the disk is full");
    case eFailure_NoPermission:
        return QStringLiteral("no permission to write the file");
    case eFailure_LocalFile:
        return QStringLiteral("the file cannot be written");
    case eFailure_Unreachable:
        return QStringLiteral("the server cannot be reached");
    case eFailure_ConnectionLost:
        return QStringLiteral("the connection to the server was lost");
    case eFailure_NotOnServer:
        return QStringLiteral("the file is not on the server");
    case eFailure_ServerError:
        return QStringLiteral("the server reports an error");
    case eFailure_BadAddress:
        return QStringLiteral("the file has no usable address");
    case eFailure_TooLarge:
        return QStringLiteral("the file is too large");
    case eFailure_Damaged:
        return QStringLiteral("the file on the server is damaged");
    case eFailure_Cancelled:
        return QStringLiteral("cancelled");
    }
    return QString();
}
