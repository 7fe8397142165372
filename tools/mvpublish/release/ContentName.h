// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>
#include <QString>

/// The name of an entry of the folder "content", as ReleasePaths gives it: that of a content, or
/// that of a release's signature. A value type.
class ContentName
{
public:
    /// `name` is relative to the tree.
    explicit ContentName(const QString& name);

    bool isValid() const { return !m_digest.isEmpty(); }
    bool isSignature() const { return m_isSignature; }
    /// Returns the digest of the content, or of the release that is signed; empty if the name is
    /// not one that ReleasePaths gives.
    const QByteArray& digest() const { return m_digest; }

private:
    QByteArray m_digest;
    bool m_isSignature = false;
};
