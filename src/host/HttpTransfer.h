// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "host/ResponseHead.h"
#include "host/StallWatch.h"
#include "host/STransferFailure.h"
#include "host/SValidators.h"

#include <QDateTime>
#include <QString>

#include <chrono>
#include <memory>

#include <curl/curl.h>

class PartFile;

/// One HTTP request after the other into a PartFile, on connections that belong to a multi handle.
///
/// It follows no redirects and retries nothing: FileTransfer decides on both. Internal to the
/// library; the thread that works on the multi handle makes all calls.
class HttpTransfer
{
public:
    enum class End {
        Complete,    ///< the whole body is in the file
        NotModified, ///< the server's version has one of Request::known
        Redirect,    ///< the answer redirects: head().location
        Status,      ///< an answer whose status or coding is not acceptable
        Broken,      ///< the connection was established and broke before the body was complete
        Network,     ///< no usable connection, or silence for too long
        BadUrl,      ///< libcurl does not understand the address
        LocalFile,   ///< the file could not be written
        TooLarge,    ///< more bytes than allowed
        StaleRange,  ///< the requested rest does not fit the present part: start over
        Cancelled,   ///< keepGoing returned false
    };

    struct Request
    {
        QByteArray url;          ///< percent-encoded
        qint64 rangeStart = 0;   ///< above 0: request the rest of the body from this byte on
        QByteArray validator;    ///< for a range: the rest only if it is still this version
        qint64 rangeTotal = 0;   ///< the total of the whole, 0 if unknown
        QDateTime notAfter;      ///< without a validator: the rest only if unchanged since then
        SValidators known;       ///< unless empty: the body only if the server has another version
        qint64 maxBytes = 0;     ///< above 0: the largest body, if below that of the settings
        bool revalidate = false; ///< caches must ask the server whether they have the last version
    };

    /// The protocol that a request may use.
    enum class Version {
        Http11,       ///< HTTP/1.1
        Http2OverTls, ///< HTTP/2, multiplexed on one connection, where an https server offers it
    };

    /// `connections` is a multi handle, which must outlive this object.
    HttpTransfer(CURLM* connections, Version version);
    /// Ends a request in progress.
    ~HttpTransfer();
    Q_DISABLE_COPY_MOVE(HttpTransfer)

    /// Adds a request to the multi handle. `file` is the caller's and must exist until end(). The
    /// easy handle's private pointer (CURLOPT_PRIVATE) is `owner`.
    void begin(const Request& request, PartFile& file, void* owner);

    /// Returns whether the server has been too slow; the request then has to be ended. Of
    /// `sideBySide` transfers, each has its share of the minimum rate.
    bool isStalled(int sideBySide);
    /// Records that the request is being cancelled; it then has to be ended.
    void refuseAsCancelled();

    /// Removes the request from the multi handle and returns how it ended. `code` is libcurl's
    /// result, ignored if the request was refused for another reason.
    End end(CURLcode code);

    /// Returns the bytes of the whole file that have been received so far.
    qint64 received() const;

    const ResponseHead& head() const { return m_head; }
    /// Returns the size of the whole file as announced by the last answer, 0 if it was not.
    qint64 announcedTotal() const;
    /// Returns a readable reason why the last request did not complete.
    QString reason() const { return m_reason; }
    /// Returns the cause of how the last request ended, unless the local file failed.
    EFailureCause causeOf(End end) const;

private:
    void prepare(void* owner);
    void configure(const Request& request, void* owner);
    void noteConnection();
    End judge(CURLcode code, const PartFile& file);
    bool isConnecting();
    bool headerEnded();
    bool acceptStatus();
    bool acceptRange();
    bool isSameVersion() const;
    bool isWhole(qint64 size) const;
    bool acceptSize();
    qint64 maxBytes() const;
    bool refuse(End end, const QString& reason);
    std::size_t takeHeader(const char* data, std::size_t length);
    std::size_t takeBody(const char* data, std::size_t length);

    static std::size_t onHeader(char* data, std::size_t size, std::size_t count, void* self);
    static std::size_t onBody(char* data, std::size_t size, std::size_t count, void* self);

    struct FreeEasy
    {
        void operator()(CURL* handle) const { curl_easy_cleanup(handle); }
    };
    struct FreeList
    {
        void operator()(curl_slist* list) const { curl_slist_free_all(list); }
    };

    CURLM* m_connections; // not owned
    Version m_version;
    std::unique_ptr<CURL, FreeEasy> m_easy; // of the current or last request
    std::unique_ptr<curl_slist, FreeList> m_fields;
    char m_curlError[CURL_ERROR_SIZE] = {};

    PartFile* m_file = nullptr; // the caller's, from begin() to end()
    Request m_request;
    ResponseHead m_head;
    bool m_connected = false;  // a connection was established
    bool m_accepted = false;   // the header is complete, and the body is to be stored
    bool m_refused = false;    // m_end and m_reason are final, whatever libcurl reports
    bool m_discarding = false; // the body is an error page, read only to keep the connection
    qint64 m_discarded = 0;
    End m_end = End::Network;
    QString m_reason;
    StallWatch m_stall;
    std::chrono::steady_clock::time_point m_begun;
};
