// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "host/ContentDigest.h"
#include "host/TransferPool.h"

#include <QSaveFile>
#include <QtGlobal>

#include <functional>
#include <memory>
#include <mutex>
#include <optional>

class QNetworkAccessManager;
class QNetworkReply;
class QNetworkRequest;

/// One file on its way from the server to the disk, by Qt Network.
///
/// The thread of a pool asks it for its numbers and its outcome; everything else happens on the
/// thread of the network access manager.
class Download : public std::enable_shared_from_this<Download>
{
public:
    /// `ended` is called once, on the network's thread, when outcome() has a value.
    Download(TransferPool::Job job, std::function<void()> ended);
    ~Download();
    Q_DISABLE_COPY_MOVE(Download)

    const TransferPool::Job& job() const { return m_job; }

    /// @name On any thread
    /// @{

    struct Counts
    {
        qint64 received = 0;
        qint64 total = 0; ///< 0 while unknown
    };
    Counts counts() const;
    /// Returns how it ended; nothing while it runs.
    std::optional<STransferOutcome> outcome() const;

    /// @}
    /// @name On the network's thread, or on any before begin()
    /// @{

    void begin(QNetworkAccessManager& network);
    /// Ends it as cancelled, unless it has ended.
    void cancel();

    /// @}

private:
    void request(const QString& url, bool isPastCaches);
    QNetworkRequest requestFor(const QString& url, bool isPastCaches) const;
    void receive();
    void finish();
    void store();
    void requestAgain(const QString& url, bool isPastCaches);
    void dropReply();
    bool isTruncated() const;
    bool isPublished() const;
    void fail(ETransferResult result, EFailureCause cause, const QString& reason);
    void end(const STransferOutcome& outcome);

    const TransferPool::Job m_job;
    const std::function<void()> m_ended;

    QNetworkAccessManager* m_network = nullptr;
    QNetworkReply* m_reply = nullptr; // null between requests; deletes itself afterwards
    QString m_url;                    // of the present request
    bool m_isPastCaches = false;      // the last attempt at published content
    std::unique_ptr<QSaveFile> m_file;
    ContentDigest m_digest;

    mutable std::mutex m_mutex; // guards m_counts and m_outcome
    Counts m_counts;
    std::optional<STransferOutcome> m_outcome;
};
