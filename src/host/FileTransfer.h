// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "host/HttpTransfer.h"
#include "host/PartFile.h"
#include "host/TransferPool.h"

#include <QUrl>

#include <chrono>

/// One download of TransferPool: the requests, redirects, retries and pauses that bring one file.
/// Internal to the library; the pool's thread only.
class FileTransfer
{
public:
    FileTransfer(CURLM* connections, HttpTransfer::Version version, TransferPool::Job job);
    Q_DISABLE_COPY_MOVE(FileTransfer)

    /// The job's addresses as encoded by AddressEncoder.
    struct Addresses
    {
        QByteArray byName;    ///< Job::url
        QByteArray byContent; ///< Job::contentUrl; empty if the job has none
    };
    /// Opens the temporary file and begins the first request. It may end at once.
    void begin(const Addresses& addresses, PartFile::FolderCheck check);
    /// Continues after libcurl has reported the end of the request.
    void requestEnded(CURLcode code);
    /// Asks the job, once, whether its first request may be sent: a cancel may have come since it
    /// was started.
    void confirm();
    /// Asks the job whether to continue, and looks at time limits. `sideBySide` transfers share the
    /// line.
    void tick(int sideBySide);
    /// Ends the transfer as cancelled, unless it has ended; it need not have begun.
    void cancel();

    const QString& file() const { return m_job.file; }
    bool hasEnded() const { return m_state == State::Ended; }
    /// Returns the time left of a pause before a retry; `longest` while a request is running.
    std::chrono::milliseconds pauseLeft(std::chrono::milliseconds longest) const;
    /// Calls the job back; once, after the end.
    void report() const;

private:
    using Clock = std::chrono::steady_clock;
    enum class State { New, Requesting, Pausing, Ended };

    bool openTarget(PartFile::FolderCheck check);
    bool copyBeginning();
    void beginRequest();
    void follow(HttpTransfer::End end);
    QString redirect();
    QUrl url() const;
    void continuePaused();
    void store();
    QString contentFault(bool& isUnreadable) const;
    bool isPageWanted() const;
    void rememberVersion();
    void noteValidators();
    void beginAgain();
    bool isOther() const;
    void beginPastCaches();
    bool isTransient(HttpTransfer::End end) const;
    std::chrono::milliseconds pauseBefore(int retry) const;
    bool keepGoing(qint64 received, qint64 total);
    void succeed();
    void failAt(HttpTransfer::End end);
    void failAtFile();
    void failAsCancelled();
    void failAsOther();
    void fail(ETransferResult code, EFailureCause cause, const QString& reason);

    TransferPool::Job m_job;
    State m_state = State::New;
    STransferOutcome m_outcome;
    PartFile m_file;
    HttpTransfer m_transfer; // after m_file, into which it writes
    HttpTransfer::Request m_request;
    QByteArray m_byName;  // the job's address, encoded
    QByteArray m_address; // of the requests: by content as long as the server has that, or by name
    QUrl m_redirected;    // where m_address redirects to; empty until it does
    bool m_isConfirmed = false;
    int m_redirects = 0;
    int m_retries = 0;
    qint64 m_received = 0;
    Clock::time_point m_pauseEnd;
    Clock::time_point m_nextCallback;
};
