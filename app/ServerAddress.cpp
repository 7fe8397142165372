// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "ServerAddress.h"

#include <QUrl>

namespace {

bool isThisComputer(const QString& host)
{
    return host == QLatin1String("localhost") || host == QLatin1String("[::1]")
        || host.startsWith(QLatin1String("127."));
}

QString withScheme(const QString& text)
{
    if (text.contains(QLatin1String("://")))
        return text;
    const QString host = QUrl(QStringLiteral("http://") + text).host();
    return (isThisComputer(host) ? QStringLiteral("http://") : QStringLiteral("https://")) + text;
}

} // namespace

QString ServerAddress::normalized(const QString& text)
{
    const QString trimmed = text.trimmed();
    if (trimmed.isEmpty())
        return {};
    const QUrl url(withScheme(trimmed), QUrl::StrictMode);
    const bool isHttp =
        url.scheme() == QLatin1String("http") || url.scheme() == QLatin1String("https");
    // File names are appended to the address.
    if (!url.isValid() || !isHttp || url.host().isEmpty() || url.hasQuery() || url.hasFragment())
        return {};
    const QString address = url.toString(QUrl::FullyEncoded);
    return address.endsWith(QLatin1Char('/')) ? address : address + QLatin1Char('/');
}
