// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>
#include <QDateTime>
#include <QLatin1String>

/// The header of one HTTP answer (RFC 9110, RFC 9112), as far as a file download needs it. Internal
/// to the library; a value type.
///
/// curl_easy_header() would only split the lines: the values, and differing lengths, are evaluated
/// here in any case, without a transfer, since tests and fuzzers have only bytes.
class ResponseHead
{
public:
    /// Adds one raw line, line end included. A status line starts a new header, so the result is
    /// the last answer's, not that of an interim one (status 1xx).
    void addLine(const QByteArray& line);

    int status = 0;
    qint64 contentLength = -1;          ///< announced bytes of the body, -1 if not announced
    bool framed = false;                ///< HTTP/2 or later, so the end of the body is known
    bool hasTwoLengths = false;         ///< several fields announce different lengths
    bool chunked = false;               ///< the body is chunked, so its end is known
    bool strangeTransferCoding = false; ///< has a transfer coding other than chunked
    QByteArray contentEncoding;         ///< lower case; empty for identity
    QByteArray location;
    QByteArray etag;
    QByteArray lastModified;
    QByteArray date;            ///< when the answer was generated
    QByteArray acceptRanges;    ///< lower case
    qint64 rangeStart = -1;     ///< first byte of a 206's body, -1 if not stated
    qint64 rangeTotal = 0;      ///< size of the whole representation, 0 if not stated
    int retryAfterSeconds = -1; ///< -1 if not stated or given as a date

    bool isInterim() const { return status >= 100 && status < 200; }
    bool isRedirect() const;

    /// Returns whether the modification date identifies the version: it is so much older than the
    /// answer that the file cannot have changed twice in that second (RFC 9110, 8.8.2.2).
    bool hasStrongDate() const;
    /// Returns the time of a field with a date (RFC 9110, 5.6.7); invalid if it is none.
    static QDateTime time(QByteArray field);
    /// Returns the validator for a later range request: the entity tag if it is strong, or the
    /// modification date if there is no tag (RFC 9110, 13.1.5); otherwise empty.
    QByteArray validator() const;

private:
    void addField(QLatin1String name, QLatin1String value);
    void addLengths(const QByteArray& value);
    void addLength(const QByteArray& value);
    void addCodings(const QByteArray& value);
    void readContentRange(const QByteArray& value);

    bool m_hasLength = false; // a length field has been added
};
