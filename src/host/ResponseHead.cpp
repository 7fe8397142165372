// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "host/ResponseHead.h"

#include <QLatin1String>
#include <QList>

#include <algorithm>
#include <numeric>

namespace {

constexpr qint64 strongDateSeconds = 60; // the clocks of servers differ

/// Returns the three-digit status of a status line; 0 if there is none.
int statusOf(QLatin1String line)
{
    constexpr int length = 3;
    const QLatin1String rest = line.mid(line.indexOf(QLatin1Char(' ')) + 1);
    if (rest.size() < length)
        return 0;
    const QLatin1String code = rest.left(length);
    const bool isNumber =
        std::all_of(code.begin(), code.end(), [](char c) { return c >= '0' && c <= '9'; });
    const auto addDigit = [](int number, char c) { return number * 10 + (c - '0'); };
    return isNumber ? std::accumulate(code.begin(), code.end(), 0, addDigit) : 0;
}

bool isControlByte(char c)
{
    constexpr char deleteCharacter = 0x7f;
    return static_cast<unsigned char>(c) < ' ' || c == deleteCharacter;
}

/// Removes blanks and control characters at both ends, and replaces control characters by blanks,
/// since a field's value may be sent back (RFC 9110, 5.5).
QByteArray plain(QLatin1String field)
{
    const auto isBlank = [](char c) { return c == ' ' || isControlByte(c); };
    const char* begin = field.data();
    const char* end = begin + field.size();
    while (begin != end && isBlank(*begin))
        ++begin;
    while (begin != end && isBlank(end[-1]))
        --end;
    QByteArray value(begin, static_cast<int>(end - begin));
    std::replace_if(value.begin(), value.end(), isControlByte, ' ');
    return value;
}

} // namespace

/// Most lines are of no interest, so they are only viewed.
void ResponseHead::addLine(const QByteArray& line)
{
    const QLatin1String view(line.constData(), static_cast<int>(line.size()));
    if (view.startsWith(QLatin1String("HTTP/"))) {
        *this = ResponseHead();
        status = statusOf(view);
        framed = !line.startsWith("HTTP/1") && !line.startsWith("HTTP/0");
        return;
    }
    const auto colon = view.indexOf(QLatin1Char(':'));
    if (colon > 0)
        addField(view.left(colon), view.mid(colon + 1));
}

void ResponseHead::addField(QLatin1String name, QLatin1String value)
{
    const auto isNamed = [name](QLatin1String field) {
        return name.size() == field.size() && name.compare(field, Qt::CaseInsensitive) == 0;
    };
    if (isNamed(QLatin1String("content-length"))) {
        addLengths(plain(value));
    } else if (isNamed(QLatin1String("transfer-encoding"))) {
        addCodings(plain(value));
    } else if (isNamed(QLatin1String("content-encoding"))) {
        const QByteArray coding = plain(value).toLower();
        contentEncoding = coding == "identity" ? QByteArray() : coding;
    } else if (isNamed(QLatin1String("location"))) {
        location = plain(value);
    } else if (isNamed(QLatin1String("etag"))) {
        etag = plain(value);
    } else if (isNamed(QLatin1String("last-modified"))) {
        lastModified = plain(value);
    } else if (isNamed(QLatin1String("date"))) {
        date = plain(value);
    } else if (isNamed(QLatin1String("accept-ranges"))) {
        acceptRanges = plain(value).toLower();
    } else if (isNamed(QLatin1String("content-range"))) {
        readContentRange(plain(value));
    } else if (isNamed(QLatin1String("retry-after"))) {
        bool ok = false;
        const int seconds = plain(value).toInt(&ok);
        retryAfterSeconds = ok && seconds >= 0 ? seconds : -1;
    }
}

void ResponseHead::addCodings(const QByteArray& value)
{
    const QList<QByteArray> codings = value.toLower().split(',');
    for (const QByteArray& coding : codings) {
        const QByteArray name = coding.trimmed();
        chunked = chunked || name == "chunked";
        strangeTransferCoding = strangeTransferCoding || (name != "chunked" && name != "identity");
    }
}

/// Accepts equal lengths repeated in one field or several (RFC 9110, 8.6).
void ResponseHead::addLengths(const QByteArray& value)
{
    if (!value.contains(','))
        return addLength(value); // as in almost every answer
    const QList<QByteArray> parts = value.split(',');
    for (const QByteArray& part : parts)
        addLength(part.trimmed());
}

void ResponseHead::addLength(const QByteArray& value)
{
    bool ok = false;
    const qint64 number = value.toLongLong(&ok);
    const qint64 length = ok && number >= 0 ? number : -1;
    hasTwoLengths = hasTwoLengths || (m_hasLength && length != contentLength);
    m_hasLength = true;
    contentLength = length;
}

/// Parses "bytes FIRST-LAST/TOTAL", where TOTAL may be "*" (RFC 9110, 14.4).
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
    rangeTotal = ok ? std::max<qint64>(total, 0) : 0;
}

bool ResponseHead::isRedirect() const
{
    return status == 301 || status == 302 || status == 303 || status == 307 || status == 308;
}

bool ResponseHead::hasStrongDate() const
{
    if (lastModified.isEmpty() || date.isEmpty())
        return false;
    const QDateTime modified = time(lastModified);
    const QDateTime answered = time(date);
    return modified.isValid() && answered.isValid()
        && modified.secsTo(answered) >= strongDateSeconds;
}

QDateTime ResponseHead::time(QByteArray field)
{
    // Qt 6 reads zones as numbers only.
    const QByteArray zone = "GMT";
    if (field.endsWith(zone))
        field.replace(field.size() - zone.size(), zone.size(), "+0000");
    return QDateTime::fromString(QString::fromLatin1(field), Qt::RFC2822Date);
}

QByteArray ResponseHead::validator() const
{
    if (etag.isEmpty())
        return lastModified;
    return etag.startsWith("W/") ? QByteArray() : etag;
}
