// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "TrafficLog.h"

#include <QByteArray>
#include <QElapsedTimer>
#include <QString>
#include <QVector>

#include <curl/curl.h>

/// Plain libcurl clients that send the requests of a recorded one, and discard the answers.
class ReplayedClients
{
public:
    /// `server` is "http://127.0.0.1:PORT".
    ReplayedClients(QByteArray server, const QVector<TrafficLog::Request>& requests);
    ~ReplayedClients();
    Q_DISABLE_COPY_MOVE(ReplayedClients)

    /// Runs this many clients, some at a time, each over connections of its own; after a while no
    /// other one begins. Returns an error if an answer has another status than the recorded one;
    /// empty: success.
    QString run(int clients);
    /// Returns how many clients have run to their end.
    int done() const { return m_done; }

private:
    struct Client
    {
        CURL* easy = nullptr;
        int next = 0; // number of its next request
    };
    struct Prepared
    {
        QByteArray url;
        long status = 0;
        curl_slist* fields = nullptr;
    };

    void begin(Client& client);
    bool end(Client& client, CURLcode code);
    void endTransfers();

    QVector<Prepared> m_requests;
    CURLM* m_multi;
    int m_waiting = 0; // clients that have not begun
    int m_running = 0;
    int m_done = 0;
    QElapsedTimer m_timer;
    QString m_error;
};
