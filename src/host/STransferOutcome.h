// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "host/ETransferResult.h"
#include "host/STransferFailure.h"
#include "host/SValidators.h"

/// How a transfer of TransferPool ended. A value type.
struct STransferOutcome
{
    /// The result code.
    ETransferResult m_eResult = eTransfer_Success;
    /// Explains the failure; no failure after a success.
    STransferFailure m_failure;
    /// True after a success without a body: the server's version is the known one, and the local
    /// file was not touched.
    bool m_bNotModified = false;
    /// Those of the server's version; empty after a failure.
    SValidators m_validators;
};
