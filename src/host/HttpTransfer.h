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
/// It follows no redirect and tries nothing twice: CurWrapper decides on both. Internal to the
/// library. Everything but wake() belongs to the thread that calls perform().
class HttpTransfer
{
public:
    enum class End {
        Complete,   ///< the whole body stands in the file
        Redirect,   ///< the answer points elsewhere: head().location
        Status,     ///< an answer whose status or coding is not acceptable
        Broken,     ///< the connection stood and broke before the body was whole
        Network,    ///< no usable connection, or nothing came for too long
        BadUrl,     ///< libcurl does not understand the address
        LocalFile,  ///< the file could not be written
        TooLarge,   ///< more bytes than allowed
        StaleRange, ///< the rest that was asked for does not fit what is there: begin again
        Cancelled,  ///< keepGoing said no
    };

    struct Request
    {
        QByteArray url;        ///< percent-encoded
        qint64 rangeStart = 0; ///< above 0: ask for the rest of the body from this byte on
        QByteArray validator;  ///< goes with a range: the rest only if it is still this version
        qint64 rangeTotal = 0; ///< what the whole had, 0 if not known
        QDateTime notAfter;    ///< without a validator: the rest only if unchanged since then
    };

    /// Called at least every 50 ms, and whenever bytes have come; false ends the request.
    /// `total` is 0 while it is not known.
    using KeepGoing = std::function<bool(qint64 received, qint64 total)>;

    HttpTransfer();
    ~HttpTransfer();
    Q_DISABLE_COPY_MOVE(HttpTransfer)

    End perform(const Request& request, PartFile& file, const KeepGoing& keepGoing);

    /// Waits, calling keepGoing(0, 0) all the while; false as soon as that says no.
    bool pause(int milliseconds, const std::function<bool()>& keepGoing);

    /// Ends the waiting of perform() or pause() early. Any thread.
    void wake();

    const ResponseHead& head() const { return m_head; }
    /// Bytes of the whole file as the last answer announced it, 0 if it did not.
    qint64 announcedTotal() const;
    /// A text for people: why the last request did not complete.
    QString reason() const { return m_reason; }
    /// The cause of an end of the last request that was not a failure of the local file.
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
    std::unique_ptr<CURL, FreeEasy> m_easy;    // of the present or last request
    std::unique_ptr<curl_slist, FreeList> m_fields;
    char m_curlError[CURL_ERROR_SIZE] = {};

    PartFile* m_file = nullptr; // the caller's, during perform()
    Request m_request;
    ResponseHead m_head;
    bool m_connected = false;  // a connection stood
    bool m_accepted = false;   // the header is whole, and its body is to be the file
    bool m_refused = false;    // m_end and m_reason are decided, whatever libcurl says
    bool m_discarding = false; // the body is an error page: read past it, to keep the connection
    qint64 m_discarded = 0;
    End m_end = End::Network;
    QString m_reason;
    StallWatch m_stall;
};
