// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "host/ETransferResult.h"
#include "host/STransferFailure.h"

#include <QNetworkReply>

/// Translates Qt's network errors into the results and causes of the platform.
class NetworkFailure
{
public:
    NetworkFailure() = delete;

    static ETransferResult resultOf(QNetworkReply::NetworkError error);
    static EFailureCause causeOf(QNetworkReply::NetworkError error);
};
