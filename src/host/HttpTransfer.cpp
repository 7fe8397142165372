// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "host/HttpTransfer.h"

#include "host/HostSettings.h"
#include "host/PartFile.h"

#include <algorithm>
#include <utility>

using std::chrono::milliseconds;

namespace {

/// Below the size at which the allocator returns memory to the system after every request.
constexpr long receiveBuffer = 64 * 1024;
/// An error page up to this size is read to its end, so that the connection can be reused.
constexpr qint64 maxDiscardBytes = 64 * 1024;
/// libcurl's own limit comes first, since its reason is more precise.
constexpr milliseconds connectTolerance(100);

} // namespace

HttpTransfer::HttpTransfer(CURLM* connections, Version version)
    : m_connections(connections)
    , m_version(version)
{
}

HttpTransfer::~HttpTransfer()
{
    if (m_file)
        curl_multi_remove_handle(m_connections, m_easy.get());
}

void HttpTransfer::begin(const Request& request, PartFile& file, void* owner)
{
    m_request = request;
    m_file = &file;
    m_head = ResponseHead();
    m_connected = false;
    m_accepted = false;
    m_refused = false;
    m_discarding = false;
    m_discarded = 0;
    m_reason.clear();
    m_curlError[0] = '\0';
    m_stall.restart();
    m_begun = std::chrono::steady_clock::now();

    configure(request, owner);
    curl_multi_add_handle(m_connections, m_easy.get());
}

HttpTransfer::End HttpTransfer::end(CURLcode code)
{
    noteConnection();
    curl_multi_remove_handle(m_connections, m_easy.get());
    const PartFile& file = *std::exchange(m_file, nullptr);
    return judge(code, file);
}

qint64 HttpTransfer::received() const
{
    return m_file ? m_file->size() : 0;
}

bool HttpTransfer::isStalled(int sideBySide)
{
    if (isConnecting()) {
        m_stall.restart();
        const milliseconds limit(hostSettings().connectTimeoutMs);
        if (std::chrono::steady_clock::now() - m_begun < limit + connectTolerance)
            return false;
        refuse(End::Network, QStringLiteral("no connection within %1 ms").arg(limit.count()));
        return true;
    }
    const QString fault = m_stall.fault(milliseconds(hostSettings().stallTimeoutMs), sideBySide);
    if (fault.isEmpty())
        return false;
    refuse(End::Network, fault);
    return true;
}

/// A connection has a limit of its own until it is established. libcurl does not enforce it on a
/// request that waits for the connection of another one, to share it.
bool HttpTransfer::isConnecting()
{
    noteConnection();
    return !m_connected;
}

/// A cancel takes precedence over the answer.
void HttpTransfer::refuseAsCancelled()
{
    m_refused = false;
    refuse(End::Cancelled, QStringLiteral("cancelled"));
}

/// Creates the handle of one request. A reused handle would be unsafe: libcurl 7.88 treats a header
/// line that begins with a blank as the continuation of the previous answer's last line, whose
/// memory it has freed. The connections belong to the multi handle and are kept.
void HttpTransfer::prepare(void* owner)
{
    m_easy.reset(curl_easy_init());
    const QByteArray proxy = hostSettings().proxy.toUtf8();
    const QByteArray caFile = hostSettings().caFile.toUtf8();

    CURL* easy = m_easy.get();
    curl_easy_setopt(easy, CURLOPT_PROTOCOLS_STR, "http,https");
    const bool isMultiplexed = m_version == Version::Http2OverTls;
    curl_easy_setopt(easy, CURLOPT_HTTP_VERSION,
                     long{isMultiplexed ? CURL_HTTP_VERSION_2TLS : CURL_HTTP_VERSION_1_1});
    curl_easy_setopt(easy, CURLOPT_PRIVATE, owner);
    curl_easy_setopt(easy, CURLOPT_NOSIGNAL, 1L);
    curl_easy_setopt(easy, CURLOPT_QUICK_EXIT, 1L); // a cancel does not wait for name look-up
    curl_easy_setopt(easy, CURLOPT_BUFFERSIZE, receiveBuffer);
    curl_easy_setopt(easy, CURLOPT_USERAGENT, "mvresource");
    curl_easy_setopt(easy, CURLOPT_ERRORBUFFER, m_curlError);
    curl_easy_setopt(easy, CURLOPT_HEADERFUNCTION, &HttpTransfer::onHeader);
    curl_easy_setopt(easy, CURLOPT_HEADERDATA, this);
    curl_easy_setopt(easy, CURLOPT_WRITEFUNCTION, &HttpTransfer::onBody);
    curl_easy_setopt(easy, CURLOPT_WRITEDATA, this);
    if (!proxy.isEmpty())
        curl_easy_setopt(easy, CURLOPT_PROXY, proxy.constData());
    // A proxy's answer to the tunnel request is not an answer about the file. The environment may
    // name a proxy, too.
    curl_easy_setopt(easy, CURLOPT_SUPPRESS_CONNECT_HEADERS, 1L);
    if (!caFile.isEmpty()) {
        curl_easy_setopt(easy, CURLOPT_CAINFO, caFile.constData());
        curl_easy_setopt(easy, CURLOPT_CAPATH, nullptr); // has the system's authorities
    }
}

void HttpTransfer::configure(const Request& request, void* owner)
{
    const HostSettings& settings = hostSettings();
    prepare(owner);
    CURL* easy = m_easy.get();
    curl_easy_setopt(easy, CURLOPT_URL, request.url.constData());
    // Otherwise requests that begin together would open a connection each.
    const bool mayShare = m_version == Version::Http2OverTls && request.url.startsWith("https:");
    if (mayShare)
        curl_easy_setopt(easy, CURLOPT_PIPEWAIT, 1L);
    curl_easy_setopt(easy, CURLOPT_CONNECTTIMEOUT_MS, long{settings.connectTimeoutMs});
    curl_slist* fields = curl_slist_append(nullptr, "Accept-Encoding: identity");
    QByteArray range;
    if (request.rangeStart > 0) {
        range = QByteArray::number(request.rangeStart) + '-';
        if (!request.validator.isEmpty())
            fields = curl_slist_append(fields, "If-Range: " + request.validator);
    }
    if (!request.known.m_etag.isEmpty())
        fields = curl_slist_append(fields, "If-None-Match: " + request.known.m_etag);
    if (!request.known.m_lastModified.isEmpty())
        fields = curl_slist_append(fields, "If-Modified-Since: " + request.known.m_lastModified);
    if (request.revalidate)
        fields = curl_slist_append(fields, "Cache-Control: no-cache");
    if (!range.isEmpty())
        curl_easy_setopt(easy, CURLOPT_RANGE, range.constData());
    curl_easy_setopt(easy, CURLOPT_HTTPHEADER, fields);
    m_fields.reset(fields);
}

void HttpTransfer::noteConnection()
{
    curl_off_t connected = 0;
    curl_easy_getinfo(m_easy.get(), CURLINFO_PRETRANSFER_TIME_T, &connected);
    m_connected = m_connected || connected > 0;
}

EFailureCause HttpTransfer::causeOf(End end) const
{
    switch (end) {
    case End::Complete:
    case End::NotModified:
        return eFailure_None;
    case End::BadUrl:
    case End::Redirect:
        return eFailure_BadAddress;
    case End::Status:
        return m_head.status == 404 || m_head.status == 410 ? eFailure_NotOnServer
                                                            : eFailure_ServerError;
    case End::Network:
        return m_connected ? eFailure_ConnectionLost : eFailure_Unreachable;
    case End::Broken:
        return eFailure_ConnectionLost;
    case End::LocalFile:
        return eFailure_LocalFile;
    case End::TooLarge:
        return eFailure_TooLarge;
    case End::StaleRange:
        return eFailure_Damaged;
    case End::Cancelled:
        return eFailure_Cancelled;
    }
    return eFailure_None;
}

HttpTransfer::End HttpTransfer::judge(CURLcode code, const PartFile& file)
{
    if (m_refused)
        return m_end;
    if (code == CURLE_OK && m_accepted && isWhole(file.size()))
        return End::Complete;
    m_reason = QString::fromUtf8(m_curlError[0] ? m_curlError : curl_easy_strerror(code));
    switch (code) {
    case CURLE_OK:
        m_reason = m_accepted ? QStringLiteral("the received part is not the rest of the file")
                              : QStringLiteral("the connection ended in the header");
        return End::Broken;
    case CURLE_URL_MALFORMAT:
        return End::BadUrl;
    case CURLE_PARTIAL_FILE:
    case CURLE_RECV_ERROR:
    case CURLE_SEND_ERROR:
    case CURLE_GOT_NOTHING:
    case CURLE_HTTP2:
    case CURLE_HTTP2_STREAM:
        return End::Broken;
    default:
        return End::Network;
    }
}

/// libcurl has checked the length of the answer itself; for a part, the total counts.
bool HttpTransfer::isWhole(qint64 size) const
{
    const qint64 total = announcedTotal();
    return m_head.status != 206 || total == 0 || size == total;
}

bool HttpTransfer::refuse(End end, const QString& reason)
{
    if (!m_refused) {
        m_refused = true;
        m_end = end;
        m_reason = reason;
    }
    return false;
}

std::size_t HttpTransfer::takeHeader(const char* data, std::size_t length)
{
    m_stall.add(length);
    const QByteArray line = QByteArray::fromRawData(data, static_cast<int>(length));
    m_head.addLine(line);
    const bool last = line == "\r\n" || line == "\n";
    if (last && m_head.status >= 200 && !m_refused && !headerEnded() && !m_discarding)
        return 0; // ends the request
    return length;
}

bool HttpTransfer::headerEnded()
{
    m_accepted = acceptStatus() && acceptRange() && acceptSize();
    return m_accepted;
}

bool HttpTransfer::acceptStatus()
{
    const bool asked = m_request.rangeStart > 0;
    if (m_head.status == 200 || (m_head.status == 206 && asked)) {
        if (!m_head.contentEncoding.isEmpty() || m_head.strangeTransferCoding) {
            return refuse(End::Status,
                          QStringLiteral("the server encoded the file without being asked to"));
        }
        if (m_head.hasTwoLengths) {
            return refuse(End::Network,
                          QStringLiteral("the server announces two different lengths"));
        }
        if (m_head.contentLength < 0 && !m_head.chunked && !m_head.framed) {
            return refuse(End::Network,
                          QStringLiteral("the server announces neither a length nor chunks, so a "
                                         "whole file cannot be told from a broken one"));
        }
        return true;
    }
    m_discarding = true;
    if (m_head.status == 304 && !m_request.known.isEmpty())
        return refuse(End::NotModified, QStringLiteral("not modified"));
    if (m_head.status == 416 && asked)
        return refuse(End::StaleRange, QStringLiteral("the server no longer has that part"));
    if (m_head.isRedirect() && !m_head.location.isEmpty())
        return refuse(End::Redirect, QStringLiteral("redirected"));
    return refuse(End::Status, QStringLiteral("HTTP status %1").arg(m_head.status));
}

bool HttpTransfer::acceptRange()
{
    if (m_request.rangeStart == 0)
        return true;
    if (m_head.status == 200) // another version, or a server without ranges: starts over
        return m_file->restart() || refuse(End::LocalFile, m_file->errorText());

    if (isSameVersion())
        return true;
    return refuse(End::StaleRange, QStringLiteral("the server sent a part of another version"));
}

/// A 206 repeats the entity tag, but may omit the date if it was requested with If-Range.
bool HttpTransfer::isSameVersion() const
{
    if (m_head.rangeStart != m_request.rangeStart)
        return false;
    const bool sizesKnown = m_request.rangeTotal > 0 && m_head.rangeTotal > 0;
    if (sizesKnown && m_head.rangeTotal != m_request.rangeTotal)
        return false;
    if (m_request.validator.startsWith('"'))
        return m_head.etag == m_request.validator;
    if (!m_request.validator.isEmpty())
        return m_head.lastModified.isEmpty() || m_head.lastModified == m_request.validator;
    const QDateTime modified = ResponseHead::time(m_head.lastModified);
    return modified.isValid() && modified <= m_request.notAfter;
}

qint64 HttpTransfer::maxBytes() const
{
    const qint64 allowed = hostSettings().maxDownloadBytes;
    return m_request.maxBytes > 0 ? std::min(allowed, m_request.maxBytes) : allowed;
}

bool HttpTransfer::acceptSize()
{
    const qint64 allowed = maxBytes();
    if (announcedTotal() <= allowed)
        return true;
    return refuse(End::TooLarge,
                  QStringLiteral("%1 bytes are announced, %2 are allowed")
                      .arg(announcedTotal())
                      .arg(allowed));
}

std::size_t HttpTransfer::takeBody(const char* data, std::size_t length)
{
    m_stall.add(length);
    const qint64 count = static_cast<qint64>(length);
    if (m_discarding) {
        m_discarded += count;
        return m_discarded > maxDiscardBytes ? 0 : length;
    }
    const qint64 allowed = maxBytes();
    if (m_file->size() + count > allowed) {
        refuse(End::TooLarge, QStringLiteral("the body exceeds the %1 bytes allowed").arg(allowed));
        return 0;
    }
    if (!m_file->write(data, count)) {
        refuse(End::LocalFile, m_file->errorText());
        return 0;
    }
    return length;
}

qint64 HttpTransfer::announcedTotal() const
{
    if (m_discarding || m_head.status < 200)
        return 0;
    if (m_head.rangeTotal > 0)
        return m_head.rangeTotal;
    if (m_head.status == 206 && m_request.rangeTotal > 0)
        return m_request.rangeTotal;
    if (m_head.contentLength < 0)
        return 0;
    return m_head.status == 206 ? m_request.rangeStart + m_head.contentLength
                                : m_head.contentLength;
}

std::size_t HttpTransfer::onHeader(char* data, std::size_t size, std::size_t count, void* self)
{
    return static_cast<HttpTransfer*>(self)->takeHeader(data, size * count);
}

std::size_t HttpTransfer::onBody(char* data, std::size_t size, std::size_t count, void* self)
{
    return static_cast<HttpTransfer*>(self)->takeBody(data, size * count);
}
