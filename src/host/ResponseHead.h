#pragma once

#include <QByteArray>

/// The header of one HTTP answer (RFC 9110, RFC 9112), as far as a file download needs it.
/// Internal to the library; a value.
///
/// curl_easy_header() would split the lines only: what the values mean, and that two lengths
/// differ, is judged here in any case, and without a transfer, as tests and fuzzers have bytes
/// only.
class ResponseHead
{
public:
    /// Takes one line as it came, line end included. A status line starts a new header, so what
    /// stands here in the end is the last answer's, not that of an interim one (status 1xx).
    void addLine(const QByteArray& line);

    int status = 0;
    qint64 contentLength = -1;          ///< announced bytes of the body, -1 if not announced
    bool hasTwoLengths = false;         ///< fields that announce different lengths
    bool chunked = false;               ///< the body is sent in chunks, so its end can be told
    bool strangeTransferCoding = false; ///< a transfer coding other than chunked
    QByteArray contentEncoding;         ///< lower case; empty for identity
    QByteArray location;
    QByteArray etag;
    QByteArray lastModified;
    QByteArray acceptRanges;    ///< lower case
    qint64 rangeStart = -1;     ///< first byte of a 206's body, -1 if not stated
    qint64 rangeTotal = 0;      ///< size of the whole representation, 0 if not stated
    int retryAfterSeconds = -1; ///< -1 if not stated or given as a date

    bool isInterim() const { return status >= 100 && status < 200; }
    bool isRedirect() const;

    /// Returns the validator for a later range request: the entity tag if it is
    /// strong; the modification date where there is no tag (RFC 9110, 13.1.5); else empty.
    QByteArray validator() const;

private:
    void addField(const QByteArray& name, const QByteArray& value);
    void addLength(const QByteArray& value);
    void readContentRange(const QByteArray& value);

    bool m_hasLength = false; // a length field has come
};
