// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>

/// The validators of one version of a file on a server (RFC 9110, 8.8), for requesting the file
/// again only if it has changed. A value type; both fields are as the server sent them, empty if it
/// did not.
struct SValidators
{
    QByteArray m_etag;         ///< ETag
    QByteArray m_lastModified; ///< Last-Modified
    /// The modification date alone identifies the version, see ResponseHead::hasStrongDate().
    bool m_bStrongDate = false;

    /// Returns whether both validators are missing.
    bool isEmpty() const { return m_etag.isEmpty() && m_lastModified.isEmpty(); }
    /// Returns whether equal validators prove that nothing has changed.
    bool areReliable() const { return !m_etag.isEmpty() || m_bStrongDate; }
};
