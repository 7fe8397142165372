#pragma once

#include <QByteArray>

/// Identify one version of a file on a server (RFC 9110, 8.8), so that it is sent again only if it
/// has changed. A value type; both are as the server sent them, empty if it did not.
struct SValidators
{
    QByteArray m_etag;
    QByteArray m_lastModified;

    bool isEmpty() const { return m_etag.isEmpty() && m_lastModified.isEmpty(); }
};
