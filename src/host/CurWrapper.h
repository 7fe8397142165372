#pragma once

#include "host/MvHostExport.h"

#include <QString>

#include <memory>

/// Blocking HTTP download of one file at a time.
///
/// One object serves one thread; only cancel() may come from another. It keeps one connection per
/// server open between downloads, so a list of files from one server should go through one object.
/// What it may and may not do (limits, proxy, trusted authorities) is read from hostSettings() at
/// every download.
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

    /// How the last download ended; 0 before the first.
    ///  0 success
    ///  1 the URL, or a redirect, is not an http or https address; more than 5 redirects; a
    ///    redirect from https to http
    ///  2 the local file cannot be written
    ///  3 network: name look-up, connection, TLS, reset, short body, stall, or a body without
    ///    length and chunks, whose end cannot be told from a break
    ///  4 HTTP status other than 200 (206 for a resumed part), or an encoding nobody asked for
    ///  5 cancelled by the callback or by cancel()
    ///  6 larger than HostSettings::maxDownloadBytes
    int result() const;

    /// The last download's failure as a text a person can act on: URL, reason, bytes received and
    /// local path. Empty after a success.
    QString errorText() const;

    /// Ends the download in progress within a second, even one that stalls. Any thread. Without a
    /// download in progress it does nothing: the next one starts afresh.
    void cancel();

private:
    class Private;
    std::unique_ptr<Private> d;
};
