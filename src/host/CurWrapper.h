#pragma once

#include "host/ETransferResult.h"
#include "host/MvHostExport.h"
#include "host/STransferFailure.h"

#include <QString>

#include <memory>

/// Blocking HTTP download of one file at a time.
///
/// One object serves one thread; only cancel() may come from another. It keeps one connection per
/// server open between downloads, so a list of files from one server should go through one object.
/// Limits, proxy and trusted authorities come from hostSettings(), read again at every download.
///
/// The bytes are written beside the target under a unique temporary name and renamed over the
/// target at the end: the target name never holds a partial file, also after a kill, and a failure
/// leaves what stood there before. What a killed process left is removed by a later download into
/// the same folder.
///
/// A transient failure (status 502, 503, 504, or a connection that breaks after it stood) is tried
/// again HostSettings::downloadRetries times, after a pause that grows and that a server's
/// Retry-After can prolong. A broken body goes on where it broke, if the server gives a strong
/// entity tag or a modification date by which both halves are known to be of one version.
class MVHOST_EXPORT CurWrapper
{
public:
    /// Bytes received so far of the bytes that will come; `total` is 0 while it is not known.
    /// Returns whether to go on. Called on the downloading thread, at least ten times a second
    /// while a download runs, also while nothing arrives, and once when all bytes are there.
    using ProgressCallback = bool (*)(qint64 received, qint64 total, void* user);

    CurWrapper();
    ~CurWrapper();
    Q_DISABLE_COPY_MOVE(CurWrapper)

    /// Installs the callback for the downloads that follow; null removes it. `user` is passed back.
    void setDownloadProgressCallback(ProgressCallback callback, void* user);

    /// Fetches `url` into the local file `file`, whose folder must exist, and returns when the
    /// download has ended; result() tells how. Characters that cannot stand in a URL (blanks,
    /// non-ASCII letters) are percent-encoded; existing escapes stay.
    ///
    /// With `resume` the target's present content counts as the beginning of the file and only the
    /// rest is asked for; the whole file is fetched again if the server has changed it since, or
    /// does not say when it did. The target is replaced only by a complete file.
    void download(const QString& url, const QString& file, bool resume);

    /// Returns how the last download ended, as an ETransferResult; 0 before the first.
    int result() const;

    /// Returns why the last download failed; no failure after a success.
    STransferFailure failure() const;
    /// The failure's details: URL, reason, bytes received and local path. Empty after a success.
    QString errorText() const;

    /// Ends the download in progress at once, even one that stalls. Any thread. Without a download
    /// in progress it does nothing: the next one starts afresh. To stop an operation of several
    /// downloads, ask a CancelToken in the progress callback and before each download.
    void cancel();

private:
    class Private;
    std::unique_ptr<Private> d;
};
