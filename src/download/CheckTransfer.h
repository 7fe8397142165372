#pragma once

#include "host/CancelToken.h"
#include "host/ETransferResult.h"
#include "host/STransferFailure.h"

#include <QString>
#include <QtGlobal>

class CurWrapper;

/// The transfers of a check's worker, bounded in size, which end as soon as the token is cancelled.
/// Internal to the library; the worker's thread only.
class CheckTransfer
{
public:
    /// The wrapper belongs to the worker and outlives this object.
    CheckTransfer(CurWrapper& wrapper, CancelToken cancel);

    /// Fetches `url` into `file`. A body larger than `maxBytes` is refused: nothing of it stays on
    /// disk.
    ETransferResult fetch(const QString& url, const QString& file, qint64 maxBytes);
    /// Why the last transfer failed; no failure after a success.
    const STransferFailure& failure() const { return m_failure; }

private:
    static bool goOn(qint64 received, qint64 total, void* user);

    CurWrapper& m_wrapper;
    CancelToken m_cancel;
    qint64 m_maxBytes = 0;
    bool m_tooLarge = false;
    STransferFailure m_failure;
};
