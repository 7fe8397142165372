// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "download/AcceptedRelease.h"
#include "download/SCatalogueCheckResult.h"
#include "host/CancelToken.h"
#include "host/ETransferResult.h"
#include "host/SValidators.h"

#include <QString>

class CheckTransfer;

/// The part of a check that concerns the server's release: fetching it, deciding whether to believe
/// it, and storing it once the check has succeeded. Internal to the library; the worker's thread
/// only.
class ReleaseCheck
{
public:
    /// `transfer` belongs to the worker and must outlive this object. Files are fetched into the
    /// folder `temp`, which ends in "/".
    ReleaseCheck(CheckTransfer& transfer, QString temp, CancelToken cancel);

    enum class End {
        Absent,   ///< the check goes on as if there were no releases
        Accepted, ///< the check goes on by release()
        Refused,  ///< the check ends: see result()
    };
    End run();

    const AcceptedRelease::Pointer& release() const { return m_release; }
    /// Returns why the release was refused.
    const SCatalogueCheckResult& result() const { return m_result; }

    /// Makes the release the accepted one, or none if the server has none any more. Returns false,
    /// with lines in the log, if it cannot be stored.
    bool store();

private:
    End fetch();
    End withoutRelease();
    End judge(const QByteArray& text);
    QString faultOf(const SRelease& release) const;
    bool fetchSignature(const QByteArray& text, QByteArray& signature);
    bool fetchList(const SRelease& release, ReleaseList& list);
    bool fetchContent(const QString& url, const QString& file, qint64 maxBytes,
                      QByteArray& content);
    bool isMissing() const;
    End refuse(const QString& reason);
    End fail();

    CheckTransfer& m_transfer;
    QString m_temp;
    CancelToken m_cancel;
    AcceptedRelease::Pointer m_known; // from the download root
    AcceptedRelease::Pointer m_release;
    SValidators m_validators;
    qint64 m_minSerial = 0;
    bool m_isNew = false;       // not the known one
    bool m_isWithdrawn = false; // the server has releases no more
    ETransferResult m_last = eTransfer_Success;
    SCatalogueCheckResult m_result;
};
