#pragma once

#include "host/ResponseHead.h"
#include "host/StallWatch.h"
#include "host/STransferFailure.h"

#include <QDateTime>
#include <QString>

#include <functional>
#include <memory>

#include <curl/curl.h>

class PartFile;

/// One HTTP request into a PartFile, and the connection that the next request reuses.
///
/// It follows no redirects and retries nothing: CurWrapper decides on both. Internal to the
/// library. All functions except wake() belong to the thread that calls perform().
class HttpTransfer
{
public:
    enum class End {
        Complete,   ///< the whole body is in the file
        Redirect,   ///< the answer redirects: head().location
        Status,     ///< an answer whose status or coding is not acceptable
        Broken,     ///< the connection was established and broke before the body was complete
        Network,    ///< no usable connection, or silence for too long
        BadUrl,     ///< libcurl does not understand the address
        LocalFile,  ///< the file could not be written
        TooLarge,   ///< more bytes than allowed
        StaleRange, ///< the requested rest does not fit the present part: start over
        Cancelled,  ///< keepGoing returned false
    };

    struct Request
    {
        QByteArray url;        ///< percent-encoded
        qint64 rangeStart = 0; ///< above 0: request the rest of the body from this byte on
        QByteArray validator;  ///< for a range: the rest only if it is still this version
        qint64 rangeTotal = 0; ///< the total of the whole, 0 if unknown
        QDateTime notAfter;    ///< without a validator: the rest only if unchanged since then
    };

    /// Called at least every 50 ms, and whenever bytes have arrived; false ends the request.
    /// `total` is 0 while unknown.
    using KeepGoing = std::function<bool(qint64 received, qint64 total)>;

    HttpTransfer();
    ~HttpTransfer();
    Q_DISABLE_COPY_MOVE(HttpTransfer)

    End perform(const Request& request, PartFile& file, const KeepGoing& keepGoing);

    /// Waits while calling keepGoing(0, 0); returns false as soon as that does.
    bool pause(int milliseconds, const std::function<bool()>& keepGoing);

    /// Ends the waiting of perform() or pause() early. Any thread.
    void wake();

    const ResponseHead& head() const { return m_head; }
    /// Returns the size of the whole file as announced by the last answer, 0 if it was not.
    qint64 announcedTotal() const;
    /// Returns a readable reason why the last request did not complete.
    QString reason() const { return m_reason; }
    /// Returns the cause of how the last request ended, unless the local file failed.
    EFailureCause causeOf(End end) const;

private:
    void prepare();
    void configure(const Request& request);
    CURLcode transfer(const KeepGoing& keepGoing);
    void noteConnection();
    End judge(CURLcode code, const PartFile& file);
    bool headerEnded();
    bool acceptStatus();
    bool acceptRange();
    bool isSameVersion() const;
    bool isWhole(qint64 size) const;
    bool acceptSize();
    bool refuse(End end, const QString& reason);
    std::size_t takeHeader(const char* data, std::size_t length);
    std::size_t takeBody(const char* data, std::size_t length);

    static std::size_t onHeader(char* data, std::size_t size, std::size_t count, void* self);
    static std::size_t onBody(char* data, std::size_t size, std::size_t count, void* self);

    struct FreeMulti
    {
        void operator()(CURLM* handle) const { curl_multi_cleanup(handle); }
    };
    struct FreeEasy
    {
        void operator()(CURL* handle) const { curl_easy_cleanup(handle); }
    };
    struct FreeList
    {
        void operator()(curl_slist* list) const { curl_slist_free_all(list); }
    };

    std::unique_ptr<CURLM, FreeMulti> m_multi; // owns the connections; outlives m_easy
    std::unique_ptr<CURL, FreeEasy> m_easy;    // of the current or last request
    std::unique_ptr<curl_slist, FreeList> m_fields;
    char m_curlError[CURL_ERROR_SIZE] = {};

    PartFile* m_file = nullptr; // the caller's, while perform() runs
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
};
