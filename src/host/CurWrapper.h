// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "host/ETransferResult.h"
#include "host/MvHostExport.h"
#include "host/STransferFailure.h"
#include "host/STransferOutcome.h"

#include <QString>

#include <memory>

struct SPublishedContent;
struct SValidators;

/// Blocking HTTP download of one file at a time.
///
/// One object serves one thread; only cancel() may be called from another. It keeps one connection
/// per server open between downloads, so use one object for a list of files from one server.
/// Limits, proxy and trusted authorities are read from hostSettings() at every download.
///
/// The bytes are written to a unique temporary file beside the target, which is renamed over the
/// target at the end: the target name never holds a partial file, even after a kill, and a failure
/// leaves the previous file. A later download into the same folder removes the remains of a killed
/// process.
///
/// A transient failure (status 502, 503, 504, or a connection that breaks once established) is
/// retried HostSettings::downloadRetries times, after a pause that grows and that a server's
/// Retry-After can extend. An interrupted body is resumed if the server provides a strong entity
/// tag or a modification date that proves that both parts belong to one version.
class MVHOST_EXPORT CurWrapper
{
public:
    /// Reports the bytes received so far and the expected total, 0 while unknown. Returns whether
    /// to continue. Called on the downloading thread, at least ten times a second while a download
    /// runs, even while nothing arrives, and once when all bytes have arrived.
    using ProgressCallback = bool (*)(qint64 received, qint64 total, void* user);

    CurWrapper();
    ~CurWrapper();
    Q_DISABLE_COPY_MOVE(CurWrapper)

    /// Sets the callback for subsequent downloads; null removes it. `user` is passed back.
    void setDownloadProgressCallback(ProgressCallback callback, void* user);

    /// Fetches `url` into the local file `file`, whose folder must exist, and returns when the
    /// download has ended; see result(). Characters not allowed in a URL (blanks, non-ASCII
    /// letters) are percent-encoded; existing escapes are kept.
    ///
    /// With `resume` the target's present content counts as the beginning of the file and only the
    /// rest is requested; the whole file is fetched again if the server has changed it since, or
    /// does not provide a validator. The target is replaced only by a complete file.
    void download(const QString& url, const QString& file, bool resume);

    /// Does the same, but if the server's version is the known one, nothing is sent and the local
    /// file is not touched: see outcome().
    void downloadIfChanged(const QString& url, const QString& file, const SValidators& known);

    /// Does the same as download(), but stores only the published content, and requests it first
    /// at `contentUrl` unless that is empty; see TransferPool::Job.
    void downloadPublished(const QString& url, const QString& file, const QString& contentUrl,
                           const SPublishedContent& published);

    /// Returns the outcome of the last download; a success before the first.
    const STransferOutcome& outcome() const;
    /// Returns the outcome of the last download, as an ETransferResult; 0 before the first.
    int result() const;

    /// Returns why the last download failed; no failure after a success.
    STransferFailure failure() const;
    /// Returns the failure's details: URL, reason, bytes received and local path. Empty after a
    /// success.
    QString errorText() const;

    /// Ends the download in progress at once, even a stalled one. Any thread. Does nothing without
    /// a download in progress: the next one is not affected. To stop an operation of several
    /// downloads, check a CancelToken in the progress callback and before each download.
    void cancel();

private:
    class Private;
    std::unique_ptr<Private> d;
};
