// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#pragma once

#include "records/MvResourceExport.h"

#include <QByteArray>
#include <QString>
#include <QVector>

class ReleaseKey;

/// A detached Ed25519 signature in the format of minisign: an untrusted comment, base64 of
/// algorithm, key id and signature, a trusted comment, and base64 of a signature of the first one
/// with that comment. The algorithms are "ED", which signs the BLAKE2b-512 digest of the content,
/// and the older "Ed", which signs the content itself. A value type, any thread.
class MVRESOURCE_EXPORT ReleaseSignature
{
public:
    /// Size of an Ed25519 signature.
    static constexpr int signatureBytes = 64;
    /// Largest signature file that parse() reads.
    static constexpr qint64 maxBytes = 16 * 1024;

    /// Reads a signature file. Returns false, with the reason in `error`, for any other text; `out`
    /// is then unchanged.
    static bool parse(const QByteArray& text, ReleaseSignature& out, QString& error);

    /// Returns whether the signature is that of `content` by one of the keys, and its trusted
    /// comment is signed, too; otherwise the reason is in `error`.
    bool verify(const QByteArray& content, const QVector<ReleaseKey>& keys, QString& error) const;

    /// Returns the comment that verify() has proved, without its prefix.
    QString trustedComment() const;
    /// Returns the id of the key that signed, as the file says.
    const QByteArray& keyId() const { return m_keyId; }

private:
    bool isPrehashed() const;

    QByteArray m_algorithm;
    QByteArray m_keyId;
    QByteArray m_signature;
    QByteArray m_trustedComment;
    QByteArray m_commentSignature;
};
