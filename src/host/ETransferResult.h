// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

/// Outcome of a transfer: the values of CurWrapper::result().
enum ETransferResult : int {
    eTransfer_Success = 0,
    /// The URL, or a redirect, is not an http or https address; more than 5 redirects; a redirect
    /// from https to http.
    eTransfer_BadUrl = 1,
    /// The local file cannot be written.
    eTransfer_LocalFile = 2,
    /// Name look-up, connection, TLS, reset, short body, stall; a body with neither length nor
    /// chunks, whose end cannot be told from a broken connection, or with two different lengths; a
    /// web page in place of a file, as from a network that requires a login.
    eTransfer_Network = 3,
    /// HTTP status other than 200 (206 for a resumed part), or an encoding that was not requested.
    eTransfer_Status = 4,
    /// Stopped by the progress callback or by CurWrapper::cancel().
    eTransfer_Cancelled = 5,
    /// Larger than the caller or HostSettings::maxDownloadBytes allows.
    eTransfer_TooLarge = 6,
    /// Not the published content: it contradicts the file name, or does not have the announced size
    /// and digest.
    eTransfer_NotPublished = 7,
};
