// SPDX-FileCopyrightText: The mvresource contributors
// SPDX-License-Identifier: MIT

#include "download/ReleaseSignature.h"

#include "download/ReleaseKey.h"

#include <QList>

#include <algorithm>

#include <sodium.h>

namespace {

constexpr int algorithmBytes = 2;
constexpr int digestBytes = crypto_generichash_BYTES_MAX; // BLAKE2b-512
const QByteArray prehashed("ED");
const QByteArray direct("Ed");
const QByteArray untrustedPrefix("untrusted comment:");
const QByteArray trustedPrefix("trusted comment: ");
constexpr int linesOfAFile = 4;

const unsigned char* bytesOf(const QByteArray& text)
{
    return reinterpret_cast<const unsigned char*>(text.constData());
}

QByteArray decoded(const QByteArray& line)
{
    return *QByteArray::fromBase64Encoding(
        line, QByteArray::Base64Encoding | QByteArray::AbortOnBase64DecodingErrors);
}

/// Returns the lines of a text without their ends, LF or CR LF; the last one may have none.
QList<QByteArray> linesOf(const QByteArray& text)
{
    QList<QByteArray> lines = text.split('\n');
    if (lines.constLast().isEmpty())
        lines.removeLast();
    for (QByteArray& line : lines) {
        if (line.endsWith('\r'))
            line.chop(1);
    }
    return lines;
}

QByteArray digestOf(const QByteArray& content)
{
    QByteArray digest(digestBytes, '\0');
    crypto_generichash(reinterpret_cast<unsigned char*>(digest.data()), digestBytes,
                       bytesOf(content), static_cast<unsigned long long>(content.size()), nullptr,
                       0);
    return digest;
}

bool isSignedBy(const ReleaseKey& key, const QByteArray& signature, const QByteArray& message)
{
    return crypto_sign_verify_detached(bytesOf(signature), bytesOf(message),
                                       static_cast<unsigned long long>(message.size()),
                                       bytesOf(key.key()))
        == 0;
}

} // namespace

bool ReleaseSignature::parse(const QByteArray& text, ReleaseSignature& out, QString& error)
{
    const QList<QByteArray> lines = linesOf(text.left(int(maxBytes) + 1));
    if (text.size() > maxBytes || lines.size() != linesOfAFile
        || !lines.at(0).startsWith(untrustedPrefix) || !lines.at(2).startsWith(trustedPrefix)) {
        error = QStringLiteral("the signature does not have the lines of a minisign signature");
        return false;
    }
    const QByteArray first = decoded(lines.at(1));
    ReleaseSignature signature;
    signature.m_algorithm = first.left(algorithmBytes);
    signature.m_keyId = first.mid(algorithmBytes, ReleaseKey::idBytes);
    signature.m_signature = first.mid(algorithmBytes + ReleaseKey::idBytes);
    signature.m_trustedComment = lines.at(2).mid(trustedPrefix.size());
    signature.m_commentSignature = decoded(lines.at(3));
    const bool isKnown = signature.isPrehashed() || signature.m_algorithm == direct;
    if (!isKnown || signature.m_signature.size() != signatureBytes
        || signature.m_commentSignature.size() != signatureBytes) {
        error = QStringLiteral("the signature is not an Ed25519 signature in base64");
        return false;
    }
    out = signature;
    return true;
}

bool ReleaseSignature::verify(const QByteArray& content, const QVector<ReleaseKey>& keys,
                              QString& error) const
{
    // Harmless to repeat, and thread-safe.
    if (sodium_init() < 0) {
        error = QStringLiteral("the signature cannot be verified: libsodium does not start");
        return false;
    }
    const auto key = std::find_if(keys.cbegin(), keys.cend(),
                                  [this](const ReleaseKey& one) { return one.id() == m_keyId; });
    if (key == keys.cend()) {
        error = QStringLiteral("the signature is by key %1, which is not trusted")
                    .arg(ReleaseKey(m_keyId, QByteArray()).idText());
        return false;
    }
    if (!isSignedBy(*key, m_signature, isPrehashed() ? digestOf(content) : content)) {
        error =
            QStringLiteral("the signature by key %1 is not one of this content").arg(key->idText());
        return false;
    }
    if (!isSignedBy(*key, m_commentSignature, m_signature + m_trustedComment)) {
        error = QStringLiteral("the trusted comment of the signature has been changed");
        return false;
    }
    return true;
}

QString ReleaseSignature::trustedComment() const
{
    return QString::fromUtf8(m_trustedComment);
}

bool ReleaseSignature::isPrehashed() const
{
    return m_algorithm == prehashed;
}
