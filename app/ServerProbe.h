// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "host/CancelToken.h"
#include "host/STransferFailure.h"
#include "WorkQueue.h"

#include <QDateTime>
#include <QObject>
#include <QString>

/// Finds out what is published at an address, without changing anything: asks for the release and
/// the version file of a resource server, on a thread of its own. GUI thread.
class ServerProbe : public QObject
{
    Q_OBJECT

public:
    struct Result
    {
        bool isFound = false;     ///< there is a catalogue
        QString address;          ///< that was asked
        QString version;          ///< of the catalogue
        QDateTime published;      ///< invalid: the server has no releases
        STransferFailure failure; ///< of the request; none: the answer was not a catalogue
    };

    explicit ServerProbe(QObject* parent);
    ~ServerProbe() override;

    /// Asks a server; `address` is normalised, see ServerAddress. finished() follows, unless the
    /// next call comes first.
    void start(const QString& address);
    /// Gives up; no signal follows.
    void cancel();

signals:
    void finished(const ServerProbe::Result& result);

private:
    WorkQueue m_queue;
    CancelToken m_cancel; // of the latest question
};
