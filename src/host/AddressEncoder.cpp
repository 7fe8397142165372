// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "host/AddressEncoder.h"

#include <QLatin1String>
#include <QStringView>
#include <QUrl>

#include <algorithm>

namespace {

/// Returns whether a path is the same when it is encoded: RFC 3986 calls its characters unreserved.
bool isPlain(QStringView path)
{
    return std::all_of(path.cbegin(), path.cend(), [](QChar character) {
        const ushort c = character.unicode();
        return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9')
            || c == '/' || c == '.' || c == '-' || c == '_' || c == '~';
    });
}

/// Returns where the path begins; -1 without a path.
int pathStart(const QString& address)
{
    const QLatin1String separator("://");
    const int server = address.indexOf(separator);
    return server < 0 ? -1 : address.indexOf(QLatin1Char('/'), server + separator.size());
}

} // namespace

QByteArray AddressEncoder::encoded(const QString& address)
{
    if (!m_server.isEmpty() && address.startsWith(m_server)) {
        const QStringView rest = QStringView(address).mid(m_server.size());
        if (rest.startsWith(QLatin1Char('/')) && isPlain(rest))
            return m_encodedServer + rest.toLatin1();
    }
    const int start = pathStart(address);
    const QStringView path = start < 0 ? QStringView() : QStringView(address).mid(start);
    const bool canReuse = start > 0 && isPlain(path);

    const QUrl url(address, QUrl::TolerantMode);
    if (!url.isValid() || !isHttp(url))
        return {};
    const QByteArray encoded = url.toEncoded(QUrl::RemoveFragment);
    // Not if the slash belongs to a query or a fragment.
    if (canReuse && url.path().size() == path.size() && encoded.endsWith(path.toLatin1())) {
        m_server = address.left(start);
        m_encodedServer = encoded.left(encoded.size() - path.size());
    }
    return encoded;
}

bool AddressEncoder::isHttp(const QUrl& url)
{
    return (url.scheme() == QLatin1String("http") || url.scheme() == QLatin1String("https"))
        && !url.host().isEmpty();
}
