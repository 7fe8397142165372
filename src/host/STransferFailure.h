// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "host/MvHostExport.h"

#include <QMetaType>
#include <QString>

class QDebug;

/// Reasons why a file could not be fetched or stored, distinguished by what a person can do about
/// them.
enum EFailureCause : int {
    eFailure_None = 0,
    eFailure_DiskFull = 1,       ///< no space, or no quota, left for the local file
    eFailure_NoPermission = 2,   ///< the folder or the file system is not writable
    eFailure_LocalFile = 3,      ///< the local file cannot be written for any other reason
    eFailure_Unreachable = 4,    ///< no connection to the server could be established
    eFailure_ConnectionLost = 5, ///< the connection broke, or was silent for too long
    eFailure_NotOnServer = 6,    ///< HTTP status 404 or 410
    eFailure_ServerError = 7,    ///< any other answer that is not the file
    eFailure_BadAddress = 8,     ///< no usable address, or a redirect that must not be followed
    eFailure_TooLarge = 9,       ///< more bytes than allowed
    eFailure_Damaged = 10,       ///< the received content is not the expected one
    eFailure_Cancelled = 11,
};

/// One failure of a transfer, for programs and for people. A value type.
struct MVHOST_EXPORT STransferFailure
{
    EFailureCause m_eCause = eFailure_None; ///< what to act on
    QString m_qsUrl;                        ///< the address, without a password
    QString m_qsFile;                       ///< local path
    /// Address, reason, bytes received and local path in one English line, for details and logs.
    QString m_qsDetails;

    /// Returns whether there is a failure.
    bool isFailure() const { return m_eCause != eFailure_None; }
    /// Returns the cause as a short phrase in the application's language ("the disk is full");
    /// empty for eFailure_None.
    QString causeText() const { return causeText(m_eCause); }
    /// Returns the phrase for a cause.
    static QString causeText(EFailureCause cause);
    /// Returns the cause as a word for programs, in no language: the enumerator without its prefix,
    /// "diskFull"; empty for eFailure_None.
    static QString causeName(EFailureCause cause);
};
Q_DECLARE_METATYPE(STransferFailure)

/// Prints cause and details for log output and test failures.
MVHOST_EXPORT QDebug operator<<(QDebug debug, const STransferFailure& failure);
