#include "host/ResponseHead.h"

#include <QList>

void ResponseHead::addLine(const QByteArray& line)
{
    if (line.startsWith("HTTP/")) {
        *this = ResponseHead();
        status = line.mid(line.indexOf(' ') + 1, 3).toInt();
        return;
    }
    const int colon = line.indexOf(':');
    if (colon > 0)
        addField(line.left(colon).toLower(), line.mid(colon + 1).trimmed());
}

void ResponseHead::addField(const QByteArray& name, const QByteArray& value)
{
    bool ok = false;
    if (name == "content-length") {
        addLength(value);
    } else if (name == "transfer-encoding") {
        const QList<QByteArray> codings = value.toLower().split(',');
        for (const QByteArray& coding : codings) {
            chunked = chunked || coding.trimmed() == "chunked";
            strangeTransferCoding = strangeTransferCoding
                || (coding.trimmed() != "chunked" && coding.trimmed() != "identity");
        }
    } else if (name == "content-encoding") {
        contentEncoding = value.toLower() == "identity" ? QByteArray() : value.toLower();
    } else if (name == "location") {
        location = value;
    } else if (name == "etag") {
        etag = value;
    } else if (name == "last-modified") {
        lastModified = value;
    } else if (name == "accept-ranges") {
        acceptRanges = value.toLower();
    } else if (name == "content-range") {
        readContentRange(value);
    } else if (name == "retry-after") {
        const int seconds = value.toInt(&ok);
        retryAfterSeconds = ok && seconds >= 0 ? seconds : -1;
    }
}

/// Equal lengths may be repeated, in one field or several (RFC 9110, 8.6).
void ResponseHead::addLength(const QByteArray& value)
{
    const QList<QByteArray> parts = value.split(',');
    for (const QByteArray& part : parts) {
        bool ok = false;
        const qint64 number = part.trimmed().toLongLong(&ok);
        const qint64 length = ok && number >= 0 ? number : -1;
        hasTwoLengths = hasTwoLengths || (m_hasLength && length != contentLength);
        m_hasLength = true;
        contentLength = length;
    }
}

/// "bytes FIRST-LAST/TOTAL", where TOTAL may be "*" (RFC 9110, 14.4).
void ResponseHead::readContentRange(const QByteArray& value)
{
    if (!value.startsWith("bytes "))
        return;
    const int dash = value.indexOf('-');
    const int slash = value.indexOf('/');
    if (dash < 0 || slash < dash)
        return;
    bool ok = false;
    const qint64 first = value.mid(6, dash - 6).trimmed().toLongLong(&ok);
    rangeStart = ok && first >= 0 ? first : -1;
    const qint64 total = value.mid(slash + 1).trimmed().toLongLong(&ok);
    rangeTotal = ok && total >= 0 ? total : -1;
}

bool ResponseHead::isRedirect() const
{
    return status == 301 || status == 302 || status == 303 || status == 307 || status == 308;
}

QByteArray ResponseHead::validator() const
{
    if (etag.isEmpty())
        return lastModified;
    return etag.startsWith("W/") ? QByteArray() : etag;
}
