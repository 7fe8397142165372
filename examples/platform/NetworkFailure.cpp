// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "NetworkFailure.h"

EFailureCause NetworkFailure::causeOf(QNetworkReply::NetworkError error)
{
    switch (error) {
    case QNetworkReply::TooManyRedirectsError:
    case QNetworkReply::InsecureRedirectError:
    case QNetworkReply::ProtocolUnknownError:
    case QNetworkReply::ProtocolInvalidOperationError:
        return eFailure_BadAddress;
    case QNetworkReply::ConnectionRefusedError:
    case QNetworkReply::HostNotFoundError:
    case QNetworkReply::SslHandshakeFailedError:
        return eFailure_Unreachable;
    default:
        return eFailure_ConnectionLost; // the time-out, too
    }
}

ETransferResult NetworkFailure::resultOf(QNetworkReply::NetworkError error)
{
    return causeOf(error) == eFailure_BadAddress ? eTransfer_BadUrl : eTransfer_Network;
}
