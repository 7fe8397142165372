// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>
#include <QString>

class QUrl;

/// Turns the addresses of files into those of requests. Most files come from one server and need no
/// escapes, so that server's part is parsed once. Internal to the library; one thread at a time.
class AddressEncoder
{
public:
    /// Returns the address percent-encoded and without a fragment; empty if it is no http or https
    /// address. Characters not allowed in a URL are escaped; existing escapes are kept.
    QByteArray encoded(const QString& address);

    /// Returns whether a request can be sent there.
    static bool isHttp(const QUrl& url);

private:
    QString m_server;           // of an earlier address: what precedes the path
    QByteArray m_encodedServer; // the same, encoded
};
