// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include <QByteArray>
#include <QtGlobal>

/// The content that a file must have to be accepted, as a publisher has announced it. A value type.
struct SPublishedContent
{
    QByteArray m_digest;    ///< see ContentDigest; empty: any content is accepted
    qint64 m_sizeBytes = 0; ///< of the content; only if m_digest is set

    /// Returns whether a content is demanded.
    bool isKnown() const { return !m_digest.isEmpty(); }
};
